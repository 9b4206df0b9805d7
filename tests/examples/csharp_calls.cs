// Calls the Linux library through TradeBill.cs: whether the records are laid out, and the callbacks called, as declared.
// Prints "RECORD OFFSET FIELD" of every field and "RECORD SIZE" of every record, then what a report said.
using System;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;

public static class Calls
{
    public delegate void WindowFunction(IntPtr context, uint message, ulong wParam, long lParam);

    [DllImport("TradeBill", CallingConvention = CallingConvention.Cdecl)]
    private static extern IntPtr CreateHostWindow(WindowFunction function, IntPtr context);

    private static int units;
    private static string firstUnit;
    private static int products;

    private static void PrintLayout(Type record)
    {
        foreach (FieldInfo field in record.GetFields(BindingFlags.Instance | BindingFlags.Public))
        {
            Console.WriteLine("{0} {1} {2}", record.Name, Marshal.OffsetOf(record, field.Name), field.Name);
        }
        Console.WriteLine("{0} {1}", record.Name, Marshal.SizeOf(record));
    }

    private static int UnitOf(IntPtr account, IntPtr contract, IntPtr delivery)
    {
        if (++units == 1)
        {
            firstUnit = Encoding.ASCII.GetString(TradeBill.BytesAt(account)) + " " +
                        BitConverter.ToString(TradeBill.BytesAt(contract)) + " " +
                        Encoding.ASCII.GetString(TradeBill.BytesAt(delivery));
        }
        return 10;
    }

    private static int CodeOf(IntPtr name, IntPtr code)
    {
        ++products;
        Marshal.Copy(new byte[] { (byte)'r', (byte)'b' }, 0, code, 2);
        return 1;
    }

    private static void TakeSizes(ref ChartSizeReport report)
    {
        Console.WriteLine("charts {0}x{1} {2}x{3}, {4} days", report.EquityWidth, report.EquityHeight,
            report.RealisedWidth, report.RealisedHeight, report.MoneyRecordCount);
    }

    private static void OnMessage(IntPtr context, uint message, ulong wParam, long lParam)
    {
        Console.WriteLine("message {0}, wParam {1}, lParam {2}", message, wParam, lParam);
    }

    public static void Main(string[] args)
    {
        foreach (Type record in new[] { typeof(MoneyRecord), typeof(ChartSizeReport), typeof(GenerateBillRequest),
                                        typeof(TradeBillCounts), typeof(ChartRect) })
        {
            PrintLayout(record);
        }
        TradeBill.SetRootFolder(args[0]);
        WindowFunction onMessage = OnMessage;
        var request = new GenerateBillRequest
        {
            HostWindow = CreateHostWindow(onMessage, IntPtr.Zero),
            StatementKind = 1,
            NotifyMessage = 1025,
            ContractUnitCallback = UnitOf,
            ChartSizeCallback = TakeSizes,
            ProductNameCallback = CodeOf,
            StartDate = TradeBill.Ascii("2024-1-2", 64),
            EndDate = TradeBill.Ascii("2024-2-5", 64),
            Account = TradeBill.FileName("90010001", 17),
            UserFolder = TradeBill.FileName("demo", 128),
            BaseMoney = new MoneyRecord { EXCHANGE_RATE = 1.0 },
        };
        uint code = TradeBill.TryGenerateBill(ref request);
        GC.KeepAlive(onMessage);
        GC.KeepAlive(request);
        Console.WriteLine("report 0x{0:X8}", code);
        Console.WriteLine("units {0}, the first {1}", units, firstUnit);
        Console.WriteLine("products {0}", products);
        TradeBillCounts counts = TradeBill.LastCounts();
        Console.WriteLine("statements {0} of {1} days, pictures {2}, error \"{3}\"", counts.Statements, counts.Days,
            counts.Pictures, TradeBill.LastError());
        request.EndDate = TradeBill.Ascii("2024-13-1", 64);
        Console.WriteLine("month 13 0x{0:X8}", TradeBill.TryGenerateBill(ref request));
        Console.WriteLine(TradeBill.LastError());
    }
}
