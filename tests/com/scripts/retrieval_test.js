// PNRs and their counts from JScript.

function TestAPnrIsRetrievedAndToldFrom() {
  var control = Simulator("");
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var pnr = new ActiveXObject("Wendrill23.CPNR");
  Equal(true, quillet.RetrieveRecLoc("ABC123"), "RetrieveRecLoc");
  Equal("retrieve RTABC123", Journal(), "what reached the terminal");
  Equal("ABC123", pnr.RecordLocator, "RecordLocator");
  Equal("PARXX0100", pnr.CreationOfficeID, "CreationOfficeID");
  Equal("0001AA", pnr.CreationAgentSign, "CreationAgentSign");
  Equal("12JUN08", pnr.CreationDate, "CreationDate");
  Equal(0, quillet.RetrieveCurrent(), "RetrieveCurrent");
  Equal(true, quillet.SplitPNR("2"), "SplitPNR");
  Equal(true, quillet.ReadPNR("ER"), "ReadPNR");
  Equal(false, quillet.RetrieveRecLoc("NOBODY"), "a PNR that is not there");
}

// One element more in each collection than in the one before, so that no count can stand for another.
function TestEachCountCountsItsOwnCollection() {
  var counts = {
    NameElementsCount: "Names",
    TicketElementsCount: "Tickets",
    RemarkElementsCount: "Remarks",
    FormOfPaymentElementsCount: "FormsOfPayment",
    HotelSegmentsCount: "Hotels",
    FareCommissionElementsCount: "Commissions",
    OrigianlIssueElementsCount: "OriginalIssues",
    INSElementsCount: "INSElements",
    MISElementsCount: "MISElements",
    MailingAddressElementsCount: "MailingAddresses",
    ContactElementsCount: "Contacts",
    ConfidentialRemarkElementsCount: "ConfidentialRemarks",
    OptionElementsCount: "Options",
    BillingAddressElementsCount: "BillingAddresses",
    CarSegmentsCount: "Cars",
    FEElementsCount: "FEElements",
    AutoTktElementsCount: "AutoTickets",
    HTLElementsCount: "HTLElements"
  };
  var scenario = SessionWith("[[pnr]]\non_display = true\ndisplay = 'X'\n"), number = 0;
  for (var name in counts) {
    ++number;
    for (var element = 0; element < number; ++element) {
      scenario += "[[pnr." + counts[name] + "]]\nText = 'X'\n";
    }
  }
  var control = Simulator(scenario);
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var pnr = new ActiveXObject("Wendrill23.CPNR");
  quillet.RetrieveCurrent();
  number = 0;
  for (name in counts) {
    Equal(++number, pnr[name], name);
  }
}

function TestAirSegmentsAreCountedByKind() {
  var scenario = SessionWith("[[pnr]]\non_display = true\ndisplay = 'X'\n");
  var kinds = ["timed", "open", "open", "flown", "flown", "flown", "flown"];
  for (var i = 0; i < kinds.length; ++i) {
    scenario += "[[pnr.AirSegments]]\nkind = '" + kinds[i] + "'\n";
  }
  var control = Simulator(scenario);
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var pnr = new ActiveXObject("Wendrill23.CPNR");
  quillet.RetrieveCurrent();
  Equal(7, pnr.AllAirSegmentsCount, "AllAirSegmentsCount");
  Equal(3, pnr.ActiveAirSegmentsCount, "ActiveAirSegmentsCount");
  Equal(1, pnr.AirSegmentsCount, "AirSegmentsCount");
  Equal(2, pnr.OpenAirSegmentsCount, "OpenAirSegmentsCount");
  Equal(4, pnr.FlownAirSegmentsCount, "FlownAirSegmentsCount");
}

function TestWithoutAPnrEveryCountIs91() {
  var pnr = new ActiveXObject("Wendrill23.CPNR");
  var names = ["NameElementsCount", "TicketElementsCount", "AllAirSegmentsCount", "CarSegmentsCount",
    "HTLElementsCount"];
  for (var i = 0; i < names.length; ++i) {
    Raises(91, "Object variable or With block variable not set", names[i], function () { return pnr[names[i]]; });
  }
}

function TestRetrievalsRaiseTheirOwnNumbers() {
  var control = Simulator("");
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  control.FailNext("RetrieveCurrent", 0x80004005 | 0, 1);
  Raises(2500, "Could not retrieve an active PNR. Make sure there is an active PNR/Session.", "RetrieveCurrent",
    function () { quillet.RetrieveCurrent(); });
  control.FailNext("Retrieve", 0x80004005 | 0, 1);
  Raises(2501, "Could not retrieve the PNR.", "RetrieveRecLoc", function () { quillet.RetrieveRecLoc("ABC123"); });
  control.FailNext("Retrieve", 0x80004005 | 0, 1);
  Raises(2502, "Error when splitting the PNR.", "SplitPNR", function () { quillet.SplitPNR("2"); });
  control.FailNext("Retrieve", 0x80004005 | 0, 1);
  Raises(2503, "Error when reading the PNR.", "ReadPNR", function () { quillet.ReadPNR("ER"); });
}
