// A host of the module in C#: a report with all callbacks and both events, the final message, and a chart painted again.
//
// Usage: Host.exe ROOT USER ACCOUNT FROM TO, with TradeBill.dll beside it. 64 bit.
// .NET Framework: csc /platform:x64 Host.cs TradeBill.cs. Later ones have GBK only after
// Encoding.RegisterProvider(CodePagesEncodingProvider.Instance).
using System;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;

public static class Native
{
    public delegate IntPtr WindowProcedure(IntPtr window, uint message, IntPtr wParam, IntPtr lParam);

    [StructLayout(LayoutKind.Sequential)]
    public struct GdiplusStartupInput
    {
        public uint GdiplusVersion;
        public IntPtr DebugEventCallback;
        public int SuppressBackgroundThread, SuppressExternalCodecs;
    }

    // The two members of a Gdiplus::Graphics object.
    [StructLayout(LayoutKind.Sequential)]
    public struct Graphics
    {
        public IntPtr Native;
        public int LastStatus;
    }

    [DllImport("user32", CharSet = CharSet.Unicode)]
    public static extern IntPtr CreateWindowExW(uint exStyle, string className, string title, uint style, int x, int y,
        int width, int height, IntPtr parent, IntPtr menu, IntPtr instance, IntPtr data);
    [DllImport("user32")]
    public static extern IntPtr SetWindowLongPtrW(IntPtr window, int index, WindowProcedure procedure);
    [DllImport("user32")]
    public static extern IntPtr DefWindowProcW(IntPtr window, uint message, IntPtr wParam, IntPtr lParam);
    [DllImport("user32")]
    public static extern int DestroyWindow(IntPtr window);

    [DllImport("gdiplus")]
    public static extern int GdiplusStartup(out IntPtr token, ref GdiplusStartupInput input, IntPtr output);
    [DllImport("gdiplus")]
    public static extern void GdiplusShutdown(IntPtr token);
    [DllImport("gdiplus")]
    public static extern int GdipCreateBitmapFromScan0(int width, int height, int stride, int format, IntPtr pixels,
        out IntPtr bitmap);
    [DllImport("gdiplus")]
    public static extern int GdipGetImageGraphicsContext(IntPtr image, out IntPtr graphics);
    [DllImport("gdiplus")]
    public static extern int GdipDeleteGraphics(IntPtr graphics);
    [DllImport("gdiplus")]
    public static extern int GdipDisposeImage(IntPtr image);
}

public sealed class Host : IDisposable
{
    private const uint NotifyMessage = 0x0401;  // WM_USER + 1
    private static readonly Encoding Gbk = Encoding.GetEncoding(936);

    // Fields, so that no delegate is collected while the module or the window may call it.
    private readonly Native.WindowProcedure procedure;
    private readonly ContractUnitFunction unitOf;
    private readonly ChartSizeFunction takeSizes;
    private readonly ProductNameFunction codeOf;
    private readonly IntPtr window;
    private readonly ManualResetEvent stop = new ManualResetEvent(false);
    private readonly ManualResetEvent acknowledged = new ManualResetEvent(false);

    public Host()
    {
        procedure = OnMessage;
        unitOf = UnitOf;
        takeSizes = TakeSizes;
        codeOf = CodeOf;
        var messagesOnly = new IntPtr(-3);
        window = Native.CreateWindowExW(0, "STATIC", null, 0, 0, 0, 0, 0, messagesOnly, IntPtr.Zero, IntPtr.Zero,
            IntPtr.Zero);
        Native.SetWindowLongPtrW(window, -4, procedure);
    }

    private IntPtr OnMessage(IntPtr target, uint message, IntPtr wParam, IntPtr lParam)
    {
        if (message != NotifyMessage) return Native.DefWindowProcW(target, message, wParam, lParam);
        Console.WriteLine("message {0}, wParam {1}", message, wParam);
        return IntPtr.Zero;
    }

    // No exception may leave a callback: there is native code on both sides of it.
    private int UnitOf(IntPtr account, IntPtr contract, IntPtr delivery)
    {
        string product = Gbk.GetString(TradeBill.BytesAt(contract));
        return product == "i" ? 100 : 10;
    }

    private void TakeSizes(ref ChartSizeReport report)
    {
        Console.WriteLine("equity chart {0}x{1}, {2} days", report.EquityWidth, report.EquityHeight,
            report.MoneyRecordCount);
    }

    private int CodeOf(IntPtr name, IntPtr code)
    {
        if (Gbk.GetString(TradeBill.BytesAt(name)) != "\u87BA\u7EB9\u94A2") return 0;  // 螺纹钢
        byte[] rebar = Encoding.ASCII.GetBytes("rb");
        Marshal.Copy(rebar, 0, code, rebar.Length);  // 32 bytes of zeros until then
        return 1;
    }

    public uint MakeReport(string user, string account, string from, string to)
    {
        var request = new GenerateBillRequest
        {
            HostWindow = window,
            Dpi = 96,
            StatementFormat = 1,
            StatementKind = 1,
            NotifyMessage = NotifyMessage,
            ContractUnitCallback = unitOf,
            ChartSizeCallback = takeSizes,
            ProductNameCallback = codeOf,
            StopEvent = stop.SafeWaitHandle.DangerousGetHandle(),
            AckEvent = acknowledged.SafeWaitHandle.DangerousGetHandle(),
            StartDate = TradeBill.Ascii(from, 64),
            EndDate = TradeBill.Ascii(to, 64),
            Account = TradeBill.FileName(account, 17),
            UserFolder = TradeBill.FileName(user, 128),
            BaseMoney = new MoneyRecord { EXCHANGE_RATE = 1.0 },
        };
        return TradeBill.TryGenerateBill(ref request);
    }

    // From another thread than that of MakeReport. False if the run was over before it saw the stop.
    public bool Stop(int milliseconds)
    {
        stop.Set();
        bool seen = acknowledged.WaitOne(milliseconds);
        stop.Reset();
        acknowledged.Reset();
        return seen;
    }

    // Paints the equity chart into a bitmap and returns the status.
    public int Repaint(int width, int height)
    {
        const int argb = 0x26200A;
        var input = new Native.GdiplusStartupInput { GdiplusVersion = 1 };
        IntPtr token, bitmap, native;
        Native.GdiplusStartup(out token, ref input, IntPtr.Zero);
        Native.GdipCreateBitmapFromScan0(width, height, 0, argb, IntPtr.Zero, out bitmap);
        Native.GdipGetImageGraphicsContext(bitmap, out native);
        IntPtr target = Marshal.AllocHGlobal(Marshal.SizeOf(typeof(Native.Graphics)));
        Marshal.StructureToPtr(new Native.Graphics { Native = native }, target, false);
        var rect = new ChartRect { Right = width, Bottom = height };
        TradeBill.StretchZjGraph(target, ref rect, width, height);
        var graphics = (Native.Graphics)Marshal.PtrToStructure(target, typeof(Native.Graphics));
        Marshal.FreeHGlobal(target);
        Native.GdipDeleteGraphics(native);
        Native.GdipDisposeImage(bitmap);
        Native.GdiplusShutdown(token);
        return graphics.LastStatus;
    }

    public void Dispose()
    {
        Native.DestroyWindow(window);
        stop.Close();
        acknowledged.Close();
    }

    public static int Main(string[] args)
    {
        if (args.Length != 5) return 2;
        TradeBill.SetRootFolder(args[0]);
        using (var host = new Host())
        {
            Console.CancelKeyPress += (sender, key) => key.Cancel = host.Stop(5000);  // Ctrl+C, on a thread of its own
            uint code = host.MakeReport(args[1], args[2], args[3], args[4]);
            Console.WriteLine("report: 0x{0:X8}", code);
            if (code != 0) return 1;
            Console.WriteLine("equity chart painted again, status {0}", host.Repaint(800, 400));
        }
        return 0;
    }
}
