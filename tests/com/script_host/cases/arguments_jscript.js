WScript.Echo(WScript.Arguments.length, WScript.Arguments(0), WScript.Arguments.Item(1));
for (var words = new Enumerator(WScript.Arguments); !words.atEnd(); words.moveNext()) {
  WScript.StdOut.WriteLine(words.item());
}
