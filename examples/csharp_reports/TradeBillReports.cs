// The interface of tradebill.h for C#: reports of several accounts at once. Texts are those of .NET, failures are
// exceptions, and what has to be freed is IDisposable. .NET Framework 4.5 and later, .NET, Mono.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Text;

namespace TradeBill
{
    public enum Result
    {
        Done = 0,
        Incomplete = 1,
        WrongRequest = 2,
        NothingRead = 3,
        Stopped = 4,
        PlaceTaken = 5,
        Failed = 6,
        OutOfMemory = 7,
        NoReport = 8,
        NoSuchName = 9,
        WrongArgument = 10,
        Busy = 11
    }

    /// A report that can't be made, or a question that it can't answer.
    public sealed class ReportException : Exception
    {
        public readonly Result Result;

        public ReportException(Result result, string words)
            : base(words.Length == 0 ? Native.Text(Native.TradeBillResultName((int)result)) : words)
        {
            Result = result;
        }
    }

    /// What a report is of. All but Root may stay null or 0: what is left open is found.
    public sealed class Request
    {
        public string Root, User, Account;
        public string From, To, Today;
        public string Format, Kind, Template;
        public string RequestFile, Units, Products, Live, LargestStatement;
        public int Dpi;
        public bool OffsetsMargins;
        public string Out;
        public int WaitSeconds, TradingDays;

        /// Day from 1, or 0 behind the days; how many days there are; the stage. True stops the report.
        public Func<int, int, string, bool> Progress;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Totals
    {
        internal uint Size;
        public uint Days, Statements, Unreadable, Records, Pictures, Errors, Warnings, Notes;
    }

    /// A report of one account. Used by one thread at a time; several may be at work beside each other.
    public sealed class Report : IDisposable
    {
        IntPtr report;

        public Report()
        {
            Require(Native.TradeBillOpen(out report));
        }

        ~Report()
        {
            Dispose();
        }

        public void Dispose()
        {
            Native.TradeBillClose(report);
            report = IntPtr.Zero;
            GC.SuppressFinalize(this);
        }

        /// Writes the page. Throws ReportException; where something is missing its Result is Incomplete, and the
        /// report can be asked all the same.
        public void Make(Request request)
        {
            Run(request, Native.TradeBillMake);
        }

        /// The same without a page: no file is written.
        public void Read(Request request)
        {
            Run(request, Native.TradeBillRead);
        }

        public string Page { get { return Native.Text(Native.TradeBillPageUtf8(report)); } }
        public string Notes { get { return Native.Text(Native.TradeBillNotesUtf8(report)); } }

        public Totals Totals
        {
            get
            {
                var totals = new Totals { Size = (uint)Marshal.SizeOf(typeof(Totals)) };
                Require(Native.TradeBillTotal(report, ref totals));
                return totals;
            }
        }

        /// Everything that was read and worked out.
        public string Json()
        {
            IntPtr json;
            UIntPtr bytes;
            Require(Native.TradeBillJson(report, out json, out bytes));
            return Encoding.UTF8.GetString(Native.TakeBytes(json, bytes));
        }

        /// The bytes of a PNG file; sizes of 0 are those of the page.
        public byte[] Png(string chart, int width = 0, int height = 0)
        {
            IntPtr png;
            UIntPtr bytes;
            Require(Native.TradeBillPng(report, Native.Ascii(chart), width, height, out png, out bytes));
            return Native.TakeBytes(png, bytes);
        }

        /// The rows of a table by column: double[] (NaN for nothing), long?[] or string[] (null for nothing).
        public IDictionary<string, Array> Rows(string table)
        {
            IntPtr rows;
            Require(Native.TradeBillOpenTable(report, Native.Ascii(table), out rows));
            try
            {
                return Columns.Of(table, rows);
            }
            finally
            {
                Native.TradeBillCloseTable(rows);
            }
        }

        delegate int Runner(IntPtr report, ref NativeRequest request);

        void Run(Request request, Runner run)
        {
            using (var texts = new NativeTexts())
            {
                NativeRequest native = texts.Of(request);
                int result = run(report, ref native);
                GC.KeepAlive(native.Progress);
                Require(result);
            }
        }

        void Require(int result)
        {
            if (result == 0) return;
            throw new ReportException((Result)result, Native.Text(Native.TradeBillErrorUtf8(report)));
        }
    }

    static class Columns
    {
        const int kText = 1, kNumber = 2, kCount = 3, kDay = 4;

        internal static IDictionary<string, Array> Of(string table, IntPtr rows)
        {
            var columns = new Dictionary<string, Array>();
            int place = 0;
            while (Native.Text(Native.TradeBillTableName(place)) != table) ++place;
            long count = Native.TradeBillRowCount(rows);
            for (int column = 0; column < Native.TradeBillColumnCount(place); ++column)
            {
                string name = Native.Text(Native.TradeBillColumnName(place, column));
                columns.Add(name, Values(rows, column, Native.TradeBillColumnKindOf(place, column), count));
            }
            return columns;
        }

        static Array Values(IntPtr rows, int column, int kind, long count)
        {
            switch (kind)
            {
                case kNumber:
                    var numbers = new double[count];
                    if (count > 0) Marshal.Copy(Native.TradeBillNumbers(rows, column), numbers, 0, (int)count);
                    return numbers;
                case kCount:
                    var wholes = new long[count];
                    if (count > 0) Marshal.Copy(Native.TradeBillWholeNumbers(rows, column), wholes, 0, (int)count);
                    return Array.ConvertAll(wholes, whole => whole == long.MinValue ? (long?)null : whole);
                case kText:
                case kDay:
                    var texts = new IntPtr[count];
                    if (count > 0) Marshal.Copy(Native.TradeBillTextsUtf8(rows, column), texts, 0, (int)count);
                    return Array.ConvertAll(texts, Native.Text);
                default:
                    return new object[count];  // of a library that is newer than this
            }
        }
    }

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    delegate int NativeProgress(IntPtr context, IntPtr progress);

    [StructLayout(LayoutKind.Sequential)]
    struct ProgressRecord
    {
        public uint Size;
        public int Day, Days;
        public IntPtr Stage;
    }

    [StructLayout(LayoutKind.Sequential)]
    struct NativeRequest
    {
        public uint Size;
        public IntPtr Root, User, Account, From, To, Today, Format, Kind, Template, RequestFile, Units, Products, Live;
        public IntPtr LargestStatement;
        public int Dpi, OffsetsMargins;
        public IntPtr Out;
        public int WaitSeconds, TradingDays;
        public NativeProgress Progress;
        public IntPtr Context;
    }

    /// Texts as the library takes them, for as long as this isn't disposed of.
    sealed class NativeTexts : IDisposable
    {
        readonly List<IntPtr> texts = new List<IntPtr>();

        public NativeRequest Of(Request request)
        {
            return new NativeRequest
            {
                Size = (uint)Marshal.SizeOf(typeof(NativeRequest)),
                Root = Of(request.Root), User = Of(request.User), Account = Of(request.Account),
                From = Of(request.From), To = Of(request.To), Today = Of(request.Today),
                Format = Of(request.Format), Kind = Of(request.Kind), Template = Of(request.Template),
                RequestFile = Of(request.RequestFile), Units = Of(request.Units), Products = Of(request.Products),
                Live = Of(request.Live), LargestStatement = Of(request.LargestStatement),
                Dpi = request.Dpi, OffsetsMargins = request.OffsetsMargins ? 1 : 0, Out = Of(request.Out),
                WaitSeconds = request.WaitSeconds, TradingDays = request.TradingDays,
                Progress = request.Progress == null ? null : Watching(request.Progress)
            };
        }

        public void Dispose()
        {
            foreach (IntPtr text in texts) Marshal.FreeHGlobal(text);
            texts.Clear();
        }

        IntPtr Of(string text)
        {
            if (text == null) return IntPtr.Zero;
            byte[] bytes = Native.Utf8(text);
            IntPtr native = Marshal.AllocHGlobal(bytes.Length);
            texts.Add(native);
            Marshal.Copy(bytes, 0, native, bytes.Length);
            return native;
        }

        static NativeProgress Watching(Func<int, int, string, bool> progress)
        {
            return (context, record) =>
            {
                var told = (ProgressRecord)Marshal.PtrToStructure(record, typeof(ProgressRecord));
                return progress(told.Day, told.Days, Native.Text(told.Stage)) ? 1 : 0;
            };
        }
    }

    static class Native
    {
        const string kLibrary = "tradebill";  // TradeBill.dll on Windows, libtradebill.so on Linux

        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillResultName(int result);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillOpen(out IntPtr report);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern void TradeBillClose(IntPtr report);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillMake(IntPtr report, ref NativeRequest request);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillRead(IntPtr report, ref NativeRequest request);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillErrorUtf8(IntPtr report);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillNotesUtf8(IntPtr report);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillPageUtf8(IntPtr report);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillTotal(IntPtr report, ref Totals totals);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillJson(IntPtr report, out IntPtr json, out UIntPtr bytes);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern void TradeBillFree(IntPtr buffer);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillTableName(int table);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillColumnCount(int table);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillColumnName(int table, int column);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillColumnKindOf(int table, int column);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillOpenTable(IntPtr report, byte[] name, out IntPtr table);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern void TradeBillCloseTable(IntPtr table);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern long TradeBillRowCount(IntPtr table);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillNumbers(IntPtr table, int column);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillWholeNumbers(IntPtr table, int column);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr TradeBillTextsUtf8(IntPtr table, int column);
        [DllImport(kLibrary, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int TradeBillPng(IntPtr report, byte[] chart, int width, int height, out IntPtr png,
                                                out UIntPtr bytes);

        /// With the zero that ends it.
        internal static byte[] Utf8(string text)
        {
            return Encoding.UTF8.GetBytes(text + "\0");
        }

        internal static byte[] Ascii(string text)
        {
            return Utf8(text);
        }

        /// Null for a null pointer.
        internal static string Text(IntPtr text)
        {
            if (text == IntPtr.Zero) return null;
            int size = 0;
            while (Marshal.ReadByte(text, size) != 0) ++size;
            var bytes = new byte[size];
            Marshal.Copy(text, bytes, 0, size);
            return Encoding.UTF8.GetString(bytes);
        }

        /// A copy of the library's buffer, which is freed.
        internal static byte[] TakeBytes(IntPtr buffer, UIntPtr size)
        {
            var bytes = new byte[(int)size];
            Marshal.Copy(buffer, bytes, 0, bytes.Length);
            TradeBillFree(buffer);
            return bytes;
        }
    }
}
