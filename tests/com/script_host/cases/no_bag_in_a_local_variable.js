function read() {
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  quillet.SendCommandTicsPas(quillet);
}
read();
