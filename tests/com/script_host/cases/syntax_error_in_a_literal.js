function one() {
  // a comma is missing
  return {
    a: 1
    b: 2
  };
}
