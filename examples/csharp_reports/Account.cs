// Reads two accounts beside each other and shows their days, in C#: Account.exe ROOT-OF-ONE ROOT-OF-ANOTHER PICTURE
using System;
using System.Collections.Generic;
using System.IO;
using System.Threading;
using TradeBill;

static class Account
{
    static string Told(string root)
    {
        using (var report = new Report())
        {
            int seen = 0;
            report.Read(new Request { Root = root, Progress = (day, ofAll, stage) => { seen = Math.Max(seen, day); return false; } });
            Totals totals = report.Totals;
            IDictionary<string, Array> rows = report.Rows("days");
            var dates = (string[])rows["BILL_DATE"];
            var equities = (double[])rows["KHQY"];
            return string.Format("{0} of {1} days, {2} records, {3} errors, equity {4:0.00} on {5}", totals.Statements, seen,
                                 totals.Records, totals.Errors, equities[equities.Length - 1], dates[dates.Length - 1]);
        }
    }

    static int Main(string[] roots)
    {
        if (roots.Length != 3) return 2;
        var told = new string[2];
        var threads = new Thread[2];
        for (int i = 0; i < 2; ++i)
        {
            int own = i;
            threads[i] = new Thread(() => told[own] = Told(roots[own]));
            threads[i].Start();
        }
        foreach (Thread thread in threads) thread.Join();
        foreach (string line in told) Console.WriteLine(line);
        using (var report = new Report())
        {
            try
            {
                report.Read(new Request { Root = roots[0], Kind = "either" });
            }
            catch (ReportException error)
            {
                Console.WriteLine("{0}: {1}", error.Result, error.Message);
            }
            report.Read(new Request { Root = roots[0] });
            File.WriteAllBytes(roots[2], report.Png("equity", 400, 200));
        }
        return 0;
    }
}
