// Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not fetched.
//
//   csc /platform:x86 find_in_pages.cs
//   find_in_pages.exe [TEXT [ENTRY]]      on a desktop with Quillet, the library registered
//
// Without arguments: a flight in an availability display of the simulator. The members that collect pages fetch all of
// them; here each page is an entry of its own, MD. An error goes to standard error, and the status is 1.
using System;
using System.Collections.Generic;
using System.Linq;
using System.Text.RegularExpressions;

static class FindInPages
{
    static readonly Regex PageNumbers = new Regex(">(?: *PAGE)? *([0-9]+) */ *([0-9]+) *$");

    // Without the attribute every call would go through the marshaller, and errors might lose their messages.
    [STAThread]
    static int Main(string[] words)
    {
        try
        {
            Find(words.Length > 0 ? words[0] : "AF 123", words.Length > 1 ? words[1] : "AN20JUNNCEPAR");
            return 0;
        }
        catch (Exception error)
        {
            Console.Error.WriteLine("Error " + NumberOf(error) + ": " + error.Message);
            return 1;
        }
    }

    static void Find(string text, string entry)
    {
        dynamic quillet = Activator.CreateInstance(Type.GetTypeFromProgID("Wendrill23.CQuillet", true));
        Console.WriteLine("> " + entry);
        List<string> page = Page(quillet, entry);
        int number = 1;
        while (RowWith(page, text) == "" && GoesOn(page))
        {
            Console.WriteLine("Page " + number + ": not there");
            page = Page(quillet, "MD");
            ++number;
        }
        string row = RowWith(page, text);
        if (row == "")
        {
            Console.WriteLine("Page " + number + ": not there, and this is the last one");
        }
        else if (GoesOn(page))
        {
            Console.WriteLine("Page " + number + ": " + row);
            Console.WriteLine("The pages after it were not fetched.");
        }
        else
        {
            Console.WriteLine("Page " + number + ", the last one: " + row);
        }
    }

    // Sends an entry, waits for the host's answer and cuts it into rows: it is one text of rows of the screen's width,
    // without line breaks.
    static List<string> Page(dynamic quillet, string entry)
    {
        string text = quillet.SendCommandNoClear(entry);
        int columns = quillet.LastNumberOfColumns;
        if (columns < 1)
            columns = 80;
        var rows = new List<string>();
        for (int start = 0; start < text.Length; start += columns)
            rows.Add(text.Substring(start, Math.Min(columns, text.Length - start)));
        return rows;
    }

    // The first row that holds the text, without the blanks around it; empty when there is none.
    static string RowWith(List<string> page, string text)
    {
        return (page.FirstOrDefault(row => row.Contains(text)) ?? "").Trim(' ');
    }

    // Whether more pages follow: the last row with text begins with "MORE", or says ">   PAGE  1/ 3" or ")> 1/ 3".
    static bool GoesOn(List<string> page)
    {
        string last = page.LastOrDefault(row => row.Trim(' ') != "") ?? "";
        Match numbers = PageNumbers.Match(last);
        return last.StartsWith("MORE", StringComparison.Ordinal) ||
            numbers.Success && int.Parse(numbers.Groups[1].Value) < int.Parse(numbers.Groups[2].Value);
    }

    // The number that the documentation names; any other status is the number itself.
    static int NumberOf(Exception error)
    {
        return (error.HResult >> 16 & 0xFFFF) == 0x800A ? error.HResult & 0xFFFF : error.HResult;
    }
}
