
// --- Records: see records.vbs, which describes the files under tests/com/records/.

function InClone(path) {
  return (WScript.Arguments(0) + "/" + path).replace(/\//g, "\\");
}

function RichDesk() {
  var control = Simulator("");
  control.Load(InClone("simulator/scenarios/rich_pnr.toml"));
  return control;
}

// The file system object opens a file for itself alone, and tests run side by side: it is tried for some seconds.
function Opened(path) {
  for (var attempt = 1; attempt < 300; attempt++) {
    try {
      return WScript.CreateObject("Scripting.FileSystemObject").OpenTextFile(path);
    } catch (error) {
      WScript.Sleep(20);
    }
  }
  return WScript.CreateObject("Scripting.FileSystemObject").OpenTextFile(path);
}

// The expected records of a file: { name, index, text }, the text being the lines, each ended by a line feed.
function RecordsIn(file) {
  var path = InClone("tests/com/records/" + file + ".records");
  var stream = Opened(path);
  var records = [];
  while (!stream.AtEndOfStream) {
    var line = stream.ReadLine();
    var heading = /^\[(.*) (-?\d+)\]$/.exec(line);
    if (heading) {
      records.push({ name: heading[1], index: parseInt(heading[2], 10), text: "" });
    } else if (line !== "" && line.charAt(0) !== "#") {
      records[records.length - 1].text += line + "\n";
    }
  }
  stream.Close();
  Check(records.length > 0, file + " has records");
  return records;
}

function BagAt(index) {
  var bag = WScript.CreateObject("Pellorin.ParamBag");
  bag.Item("intKeyIndex") = index;
  return bag;
}

// All keys of a bag in their order, a line each: the form of the files.
function BagText(bag) {
  var keys = new VBArray(bag.Keys()).toArray();
  var text = "";
  for (var i = 0; i < keys.length; ++i) {
    text += keys[i] + " = " + Described(bag.Item(keys[i])) + "\n";
  }
  return text;
}

// JScript knows but one type of number.
function Described(value) {
  switch (typeof value) {
    case "string": return '"' + value + '"';
    case "boolean": return value ? "True" : "False";
    case "number": return "int32 " + value;
    default: return typeof value;
  }
}

// What a call raises, in the form of the files; nothing when it raises nothing.
function ErrorText(call) {
  try {
    call();
  } catch (error) {
    return "error " + (error.number & 0xFFFF) + "\n";
  }
  return "";
}
