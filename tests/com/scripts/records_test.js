// The twenty members of IGet from JScript, which passes by value and can call a member by a name in a variable.

function CompareRecords(file) {
  var control = RichDesk();
  var quillet = WScript.CreateObject("Wendrill23.CQuillet");
  var pnr = WScript.CreateObject("Wendrill23.CPNR");
  quillet.RetrieveCurrent();
  var records = RecordsIn(file);
  for (var i = 0; i < records.length; ++i) {
    var record = records[i];
    var bag = BagAt(record.index);
    var raised = ErrorText(function () { pnr[record.name](bag); });
    EqualLines("intKeyIndex = int32 " + record.index + "\n" + record.text, BagText(bag) + raised,
      record.name + " " + record.index);
  }
}

function TestAirSegmentsOfTheRichPnr() {
  CompareRecords("air_segments");
}

function TestCarsAndHotelsOfTheRichPnr() {
  CompareRecords("cars_and_hotels");
}

function TestNamesAndRemarksOfTheRichPnr() {
  CompareRecords("names_and_remarks");
}

function TestFaresAndHeaderOfTheRichPnr() {
  CompareRecords("fares_and_header");
}
