// The report and the state of a scenario from JScript.

function Report() {
  return new ActiveXObject("QuilletSimulator.Control").Report.replace(/\r\n/g, "\n");
}

function TestStateAndReportReachJScript() {
  var control = Simulator("session = [{ name = 'A' }]\nreply = [\n{ entry = 'QT', when = '', screen = '1', then = 'x' },\n" +
    "{ entry = 'QT', when = 'x', screen = '2' },\n{ entry = 'SILENT', screen = '3' } ]\n");
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  Equal(Row("1"), quillet.SendCommand("QT"), "first");
  Equal(Row("2"), quillet.SendCommand("QT"), "then");
  quillet.SendCommand("QTT");
  Equal("scenario text: 1 entry was not answered\n  QTT  sent first in session A\n" +
    "  nearest: line 3, entry = \"QT\", when = \"\"; column 3: \"T\" sent, nothing expected\n" +
    "  nearest: line 4, entry = \"QT\", when = \"x\"; column 3: \"T\" sent, nothing expected\n" +
    "scenario text: 1 reply was never used\n  line 5, entry = \"SILENT\"\n", Report(), "Report");
  Equal("QTT", new VBArray(control.Unanswered).toArray().join("|"), "Unanswered");
  Equal("line 5, entry = \"SILENT\"", new VBArray(control.Unused).toArray().join("|"), "Unused");
  Equal("", new VBArray(control.Warnings).toArray().join("|"), "Warnings");
}

function TestAPnrOnDisplayIsTheOneThatWasSentFor() {
  Simulator("session = [{ name = 'A' }]\npnr = [{ RecordLocator = 'ABC123', display = 'ONE' }]\n");
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  Equal(Row("ONE"), quillet.SendCommand("RTABC123"), "the display");
  quillet.RetrieveCurrent();
  Equal(Row("ONE"), new ActiveXObject("Wendrill23.CPNR").Text, "on display");
}
