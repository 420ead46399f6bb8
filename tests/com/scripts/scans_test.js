// The scanned counts from JScript, which can read a property by a name in a variable.

function TestCountsOfTheRichPnr() {
  var control = RichDesk();
  var quillet = WScript.CreateObject("Wendrill23.CQuillet");
  var pnr = WScript.CreateObject("Wendrill23.CPNR");
  quillet.RetrieveCurrent();
  var counts = {
    SpecialServiceElementsCount: 5,
    OtherServiceElementsCount: 1,
    SecurityElementsCount: 2,
    ManualTktElementsCount: 2,
    MiscTktInfoElementsCount: 1,
    SURElementsCount: 2,
    SPElementsCount: 1,
    ATXSegmentsCount: 1,
    MCOElementsCount: 1,
    ValidatingAirlineElementsCount: 1,
    AirSequenceNrElementsCount: 1
  };
  for (var name in counts) {
    Equal(counts[name], pnr[name], name);
  }
}
