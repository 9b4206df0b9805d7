// The module for P/Invoke: the records of report_request.h, field by field, and the functions.
//
// Texts are bytes, because their encoding isn't that of the process: GBK, but for paths, which are in the system's code
// page. An array that is null stands for zeros; any other must be as long as its SizeConst, which Text() sees to.
using System;
using System.Runtime.InteropServices;
using System.Text;

[StructLayout(LayoutKind.Sequential, Pack = 8)]
public struct MoneyRecord
{
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 9)] public byte[] BILL_DATE;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] QCQY;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_1;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_2;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] CRJ;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] QMJC;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] KYZJ;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] PCYK;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_3;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_4;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] CCDSYK;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] HOST_CURRENT;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] KHQY;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_5;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SXF;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] BZJZY;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_6;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_7;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] HOST_FROZEN_A;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] HOST_FROZEN_B;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] HOST_POSITION_MARGIN;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] HOST_POSITION_PL;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] XQSXF;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] QLJSZ;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] CURRENCY;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 16)] public byte[] SPARE_MONEY_8;
    public double EXCHANGE_RATE;
}

[StructLayout(LayoutKind.Sequential, Pack = 8)]
public struct ChartSizeReport
{
    public int EquityWidth, EquityHeight;
    public int RealisedWidth, RealisedHeight;
    public int AccountYieldWidth, AccountYieldHeight;
    public int TradeYieldWidth, TradeYieldHeight;
    public int MoneyRecordCount;
}

[StructLayout(LayoutKind.Sequential, Pack = 8)]
public struct TradeBillCounts
{
    public uint Size;
    public uint Days, Statements, Unreadable, Records, Pictures;
}

[StructLayout(LayoutKind.Sequential, Pack = 8)]
public struct ChartRect
{
    public int Left, Top, Right, Bottom;
}

// The three texts, and the name below, point to zero-terminated GBK that is valid during the call.
[UnmanagedFunctionPointer(CallingConvention.Cdecl)]
public delegate int ContractUnitFunction(IntPtr account, IntPtr contract, IntPtr delivery);

[UnmanagedFunctionPointer(CallingConvention.Cdecl)]
public delegate void ChartSizeFunction(ref ChartSizeReport report);

[UnmanagedFunctionPointer(CallingConvention.Cdecl)]
public delegate int ProductNameFunction(IntPtr name, IntPtr code);

[StructLayout(LayoutKind.Sequential, Pack = 8)]
public struct GenerateBillRequest
{
    public IntPtr HostWindow;
    public int Dpi;
    public int StatementFormat;
    public int StatementKind;
    public int MarginOffsetFlag;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)] public byte[] TemplateName;
    public uint NotifyMessage;
    // Whoever fills these in keeps the delegates alive until the call has returned, in fields for instance.
    [MarshalAs(UnmanagedType.FunctionPtr)] public ContractUnitFunction ContractUnitCallback;
    [MarshalAs(UnmanagedType.FunctionPtr)] public ChartSizeFunction ChartSizeCallback;
    [MarshalAs(UnmanagedType.FunctionPtr)] public ProductNameFunction ProductNameCallback;
    public IntPtr StopEvent;
    public IntPtr AckEvent;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 64)] public byte[] StartDate;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 64)] public byte[] EndDate;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)] public byte[] Account;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 128)] public byte[] UserFolder;
    public MoneyRecord BaseMoney;
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 100)] public MoneyRecord[] CurrencyMoney;
    public int CurrencyCount;
}

public static class TradeBill
{
    private const string Module = "TradeBill";

    // GenerateBill is left out: what it raises carries no code that managed code could read.
    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    public static extern uint TryGenerateBill([In] ref GenerateBillRequest request);

    // UTF-8, valid until the next call: LastError() copies it.
    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    private static extern IntPtr TradeBillLastError();

    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    private static extern void TradeBillLastCounts(ref TradeBillCounts counts);

    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    public static extern void SetRootFolder([MarshalAs(UnmanagedType.LPStr)] string path);

    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    public static extern void ResetTradeBillFile([MarshalAs(UnmanagedType.LPStr)] string path, int finished);

    // The target is a Gdiplus::Graphics object.
    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    public static extern void StretchZjGraph(IntPtr target, ref ChartRect rect, int width, int height);

    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    public static extern void StretchRiskAndProfit(IntPtr target, ref ChartRect rect, int width, int height);

    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    public static extern void StretchRisk(IntPtr target, ref ChartRect rect, int width, int height);

    [DllImport(Module, CallingConvention = CallingConvention.Cdecl)]
    public static extern void StretchOffsetGraph(IntPtr target, ref ChartRect rect, int width, int height);

    /// A line for each thing that went wrong in the last call; empty if it went well.
    public static string LastError()
    {
        return Encoding.UTF8.GetString(BytesAt(TradeBillLastError()));
    }

    public static TradeBillCounts LastCounts()
    {
        var counts = new TradeBillCounts { Size = (uint)Marshal.SizeOf(typeof(TradeBillCounts)) };
        TradeBillLastCounts(ref counts);
        return counts;
    }

    /// The bytes of a field of `size` bytes; what is longer is cut, and the last byte stays zero.
    public static byte[] Text(byte[] bytes, int size)
    {
        var field = new byte[size];
        Array.Copy(bytes, field, Math.Min(bytes.Length, size - 1));
        return field;
    }

    public static byte[] Ascii(string text, int size)
    {
        return Text(Encoding.ASCII.GetBytes(text), size);
    }

    /// A name that becomes part of a path, in the system's code page.
    public static byte[] FileName(string name, int size)
    {
        IntPtr text = Marshal.StringToHGlobalAnsi(name);
        try
        {
            return Text(BytesAt(text), size);
        }
        finally
        {
            Marshal.FreeHGlobal(text);
        }
    }

    /// A text that a callback was given, without its zero.
    public static byte[] BytesAt(IntPtr text)
    {
        int length = 0;
        while (Marshal.ReadByte(text, length) != 0) ++length;
        var bytes = new byte[length];
        Marshal.Copy(text, bytes, 0, length);
        return bytes;
    }
}
