// Entries that wait in a queue, sent as one batch; the host refuses one of them.
//
//   csc /platform:x86 batch.cs
//   batch.exe                      on a desktop with Quillet, the library registered
//
// A batch joins the entries with ";" and sends them in as few host entries as they need, at most 239 characters at a
// time. Its report numbers these host entries from 1 and says which of them the host refused. An error goes to standard
// error, and the status is 1.
using System;

static class BatchSample
{
    const int NotQueued = 2400;  // whatever keeps an entry out of the queue

    // Without the attribute every call would go through the marshaller, and errors might lose their messages.
    [STAThread]
    static int Main()
    {
        try
        {
            Send(FilledQueue());
            return 0;
        }
        catch (Exception error)
        {
            Console.Error.WriteLine("Error " + NumberOf(error) + ": " + error.Message);
            return 1;
        }
    }

    static dynamic FilledQueue()
    {
        dynamic queue = Create("Wendrill23.CQueue");
        queue.Add("RM PAID BY CARD AT THE DESK");
        queue.Add("RM WINDOW SEATS WANTED", "seats");  // an entry may have a key
        queue.Add("ER", "end");
        queue.Add("RUBBISH");  // "RU" begins a host entry; the host does not understand this one
        AddOnce(queue, "ET", "END");
        return queue;
    }

    // A key that is there already, whatever its case, is an error.
    static void AddOnce(dynamic queue, string entry, string key)
    {
        try
        {
            queue.Add(entry, key);
        }
        catch (Exception error) when (NumberOf(error) == NotQueued)
        {
            Console.WriteLine(entry + " is not queued: there is an entry under its key, " + queue.Item(key).Command);
        }
    }

    static void Send(dynamic queue)
    {
        for (int position = 1; position <= queue.Count; ++position)
            Console.WriteLine("> " + queue.Item(position).Command);

        dynamic batch = Create("Wendrill23.CBatch");
        dynamic report = Create("Scripting.Dictionary");  // a bag, filled by the call
        batch.Commands = queue;
        batch.SubmitWithResponse(report);

        int number = 0;
        foreach (string response in (object[])report["strKeyResponseArray"])
            Console.WriteLine(++number + ": " + FirstRow(response));
        if ((bool)report["blnKeyResponseOK"])
            Console.WriteLine("The host accepted everything.");
        else
            Console.WriteLine("Refused: host entry " + report["strKeyErr"]);
    }

    static string FirstRow(string response)
    {
        return response.Substring(0, Math.Min(80, response.Length)).TrimEnd(' ');
    }

    static dynamic Create(string name)
    {
        return Activator.CreateInstance(Type.GetTypeFromProgID(name, true));
    }

    // The number that the documentation names; any other status is the number itself.
    static int NumberOf(Exception error)
    {
        return (error.HResult >> 16 & 0xFFFF) == 0x800A ? error.HResult & 0xFFFF : error.HResult;
    }
}
