// A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.
//
//   csc /platform:x86 queue_to_csv.cs
//   queue_to_csv.exe ABC123 locators.txt >pnrs.csv     on a desktop with Quillet, the library registered
//
// An argument that is the name of a file means the locators in it, one a line. The CSV (RFC 4180) goes to standard
// output, everything else to standard error. A PNR that is not found is skipped; the status is 1 when an error ends the
// list, 2 without locators.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;

static class QueueToCsv
{
    static string place = "";  // which PNR an error belongs to

    // Without the attribute every call would go through the marshaller, and errors might lose their messages.
    [STAThread]
    static int Main(string[] words)
    {
        try
        {
            List<string> locators = AllLocators(words);
            if (locators.Count == 0)
            {
                Console.Error.WriteLine("Name record locators, or a file with one on each line.");
                return 2;
            }
            WriteAll(locators);
            return 0;
        }
        catch (Exception error)
        {
            Console.Error.WriteLine("Error " + NumberOf(error) + place + ": " + error.Message);
            return 1;
        }
    }

    static List<string> AllLocators(string[] words)
    {
        return words.SelectMany(word => File.Exists(word) ? File.ReadAllLines(word) : new[] { word })
            .Select(line => line.Trim()).Where(line => line != "").ToList();
    }

    static void WriteAll(List<string> locators)
    {
        dynamic quillet = Create("Wendrill23.CQuillet");  // connects to the running session
        Console.WriteLine(Row("locator", "kind", "number", "what", "from", "to", "date", "departs", "arrives", "detail"));
        foreach (string locator in locators)
        {
            place = " in PNR " + locator;
            if (quillet.RetrieveRecLoc(locator))
                WritePnr(locator);
            else
                Console.Error.WriteLine("There is no PNR " + locator + ".");
        }
    }

    // All rows of a PNR at once: one that cannot be read to its end leaves no half of it.
    static void WritePnr(string locator)
    {
        dynamic pnr = Create("Wendrill23.CPNR");  // a new one for each PNR: it keeps the creation line
        var rows = new List<string>();
        AddNames(rows, pnr, locator);
        AddSegments(rows, pnr, locator);
        AddTickets(rows, pnr, locator);
        AddServices(rows, pnr, locator);
        rows.ForEach(Console.WriteLine);
    }

    // Late bound, a CPNR has the members of its other interfaces too; a typed caller would write ((_IGet)pnr).NameElement.
    static void AddNames(List<string> rows, dynamic pnr, string locator)
    {
        for (int index = 0; index < pnr.NameElementsCount; ++index)
        {
            dynamic bag = BagAt(index);
            pnr.NameElement(bag);
            rows.Add(Row(locator, "name", Value(bag, "strKeyElementNr"),
                Value(bag, "strKeyLastName") + "/" + Value(bag, "strKeyInitial"), "", "", "", "", "",
                Value(bag, "strKeyPapType")));
        }
    }

    // Flights have times when they are neither open nor flown.
    static void AddSegments(List<string> rows, dynamic pnr, string locator)
    {
        for (int index = 0; index < pnr.AllAirSegmentsCount; ++index)
        {
            dynamic bag = BagAt(index);
            pnr.AllAirSegments(bag);
            rows.Add(Row(locator, "segment", Value(bag, "strKeySegmentNr"),
                Value(bag, "strKeyAirline") + " " + Value(bag, "strKeyNumber"), Value(bag, "strKeyDepCity"),
                Value(bag, "strKeyArrCity"), Value(bag, "strKeyDepDate"), Value(bag, "strKeyDepTime"),
                Value(bag, "strKeyArrTime"), "class " + Value(bag, "strKeyClass")));
        }
    }

    static void AddTickets(List<string> rows, dynamic pnr, string locator)
    {
        for (int index = 0; index < pnr.AutoTktElementsCount; ++index)
        {
            dynamic bag = Element(pnr, "FA", index);
            rows.Add(Row(locator, "ticket", Value(bag, "strKeyElementNr"), Value(bag, "strKeyTktNbr"), "", "", "", "", "",
                Belonging(bag)));
        }
    }

    static void AddServices(List<string> rows, dynamic pnr, string locator)
    {
        for (int index = 0; index < pnr.SpecialServiceElementsCount; ++index)
        {
            dynamic bag = Element(pnr, "SSR", index);
            rows.Add(Row(locator, "service", Value(bag, "strKeyElementNr"), Value(bag, "strKeyCode"), "", "", "", "", "",
                Joined(Value(bag, "strKeyAirline"), Value(bag, "strKeyStatus"), Belonging(bag))));
        }
    }

    static string Belonging(dynamic bag)
    {
        string segment = Value(bag, "strKeySegAsso");
        string passenger = Value(bag, "strKeyPasAsso");
        return Joined(segment == "" ? "" : "segment " + segment, passenger == "" ? "" : "passenger " + passenger);
    }

    // The values that are not empty, with blanks between them.
    static string Joined(params string[] values)
    {
        return string.Join(" ", values.Where(value => value != ""));
    }

    static dynamic Create(string name)
    {
        return Activator.CreateInstance(Type.GetTypeFromProgID(name, true));
    }

    // A new bag for each call: a member leaves there what an earlier call has put.
    static dynamic BagAt(int index)
    {
        dynamic bag = Create("Scripting.Dictionary");
        bag.Add("intKeyIndex", index);
        return bag;
    }

    static dynamic Element(dynamic pnr, string kind, int index)
    {
        dynamic bag = BagAt(index);
        bag.Add("strKeyPNRElement", kind);
        pnr.Elements(bag);
        return bag;
    }

    // The value under a key; nothing when the member did not put one. Reading a missing key would add it.
    static string Value(dynamic bag, string key)
    {
        return bag.Exists(key) ? Convert.ToString(bag[key]) : "";
    }

    // A row of the CSV. A value with a comma, a quotation mark or a line break is quoted, its own marks doubled.
    static string Row(params string[] values)
    {
        return string.Join(",", values.Select(value =>
            value.IndexOfAny(new[] { ',', '"', '\r', '\n' }) < 0 ? value : "\"" + value.Replace("\"", "\"\"") + "\""));
    }

    // The number that the documentation names; any other status is the number itself.
    static int NumberOf(Exception error)
    {
        return (error.HResult >> 16 & 0xFFFF) == 0x800A ? error.HResult & 0xFFFF : error.HResult;
    }
}
