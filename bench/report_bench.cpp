// Makes an account of its own and prints what a report costs, as ratios that hold on any machine: reading against a
// bare pass over the same bytes, the page against writing its bytes once, memory against the bytes of all statements,
// the cost of a row with ten times the days, and a whole report against the work that nothing can spare it.
#include <sys/resource.h>
#include <sys/wait.h>
#include <turbojpeg.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "base/day.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "driver/report_run.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "platform/file.h"
#include "platform/local_time.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "sample_days.h"
#include "statement_maker.h"
#include "statistics/account_figures.h"
#include "statistics/daily_series.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr int kRepeats = 5;
constexpr int kManyDays = 2500;
constexpr int kFewDays = 250;
constexpr CalendarDay kFirstDay{2015, 1, 1};

std::string DayTextAfter(int days) {
    return DayText(LocalDayOf(MidnightOf(kFirstDay) + kSecondsPerDay / 2 + days * kSecondsPerDay));
}

struct Account {
    std::string root;
    std::vector<std::string> paths;
    std::uintmax_t bytes = 0;
};

Account MakeAccount(const std::string& name, int days, StatementShape shape) {
    const std::string folderName = "report-bench-" + name + std::to_string(::getpid());
    Account account{(std::filesystem::temp_directory_path() / folderName).string(), {}};
    const std::string folder = account.root + "/Users/bench/Data/Bill/";
    std::filesystem::create_directories(folder);
    CStatementMaker maker(shape);
    for (int day = 0; day < days; ++day) {
        account.paths.push_back(folder + "D90019999." + DayTextAfter(day) + "o.txt");
        const std::string text = maker.Next(DayTextAfter(day));
        std::ofstream(account.paths.back(), std::ios::binary) << text;
        account.bytes += text.size();
    }
    return account;
}

GenerateBillRequest RequestFor(int days) {
    GenerateBillRequest request = ClearedRequest();
    request.StatementFormat = 1;
    request.StatementKind = 1;
    const std::string last = DashedDayText(ParsePackedDay(DayTextAfter(days - 1)));
    DashedDayText(kFirstDay).copy(request.StartDate, sizeof request.StartDate - 1);
    last.copy(request.EndDate, sizeof request.EndDate - 1);
    std::string("90019999").copy(request.Account, sizeof request.Account - 1);
    std::string("bench").copy(request.UserFolder, sizeof request.UserFolder - 1);
    return request;
}

/// Makes `report` ready for the stages of a run.
void Prepare(CReport& report, const std::string& root, const GenerateBillRequest& request) {
    report.RootFolder = root;
    report.Request = CopyRequest(request);
    report.TemplatePath = TemplatePath(report);
    report.ReportDays = ReportDaysOf(report.Request);
}

int RowsKept(const CReport& report) {
    return report.MoneyStore.Count() + report.MatchStore.Count() + report.PingDetailStore.Count() +
           report.OpiDetailStore.Count() + report.OpiSumStore.Count();
}

void ReadDays(CReport& report, const Account& account, int days) {
    report.Clear();
    CStatementLoader loader(report);
    for (int day = 0; day < days; ++day) loader.Load(DayTextAfter(day), account.paths[static_cast<std::size_t>(day)]);
}

/// Splits at newlines and blanks and counts, nothing else.
std::size_t BarePass(std::string_view text) {
    std::size_t words = 0;
    bool inWord = false;
    for (const char byte : text) {
        const bool separates = byte == '\n' || byte == ' ';
        if (!separates && !inWord) ++words;
        inWord = !separates;
    }
    return words;
}

void ShowReading(CReport& report, const Account& account) {
    std::vector<std::string> texts;
    for (const std::string& path : account.paths) texts.push_back(ReadStatementFile(path).value_or(""));
    std::size_t words = 0;
    const double bare = LeastSecondsOf(kRepeats, [&] {
        for (const std::string& text : texts) words += BarePass(text);
    });
    const double bareFromFiles = LeastSecondsOf(kRepeats, [&] {
        for (const std::string& path : account.paths) words += BarePass(ReadStatementFile(path).value_or(""));
    });
    const double reading = LeastSecondsOf(kRepeats, [&] { ReadDays(report, account, kManyDays); });
    std::printf("reading and keeping / bare pass in memory   %6.2f   (at most 5)   %.1f ms, %zu words\n",
                reading / bare, reading * 1e3, words / (2 * kRepeats));
    std::printf("reading and keeping / bare pass from files  %6.2f\n", reading / bareFromFiles);
}

/// Every layout on its own data. Days before and behind a change date are both among them.
void ShowLayouts() {
    constexpr int kRounds = 40;
    std::printf("reading and keeping / bare pass in memory, by layout (each at most 5)\n");
    for (const SampleDays& sample : RepeatSamples(TRADEBILL_SAMPLES, kRounds)) {
        CReport report;
        Prepare(report, sample.root, sample.request);
        std::size_t words = 0;
        const double bare = LeastSecondsOf(kRepeats, [&] {
            for (const auto& day : sample.days) words += BarePass(day.second);
        });
        const double reading = LeastSecondsOf(kRepeats, [&] {
            report.Clear();
            CStatementLoader loader(report);
            for (const auto& [day, text] : sample.days) loader.Read(day, text);
        });
        std::printf("  %-24s %6.2f   %zu words, %d records\n", sample.name.c_str(), reading / bare, words / kRepeats,
                    RowsKept(report));
    }
}

void WritePage(const CReport& report, const std::string& path) {
    CHtmlBuilder page(path);
    AddPageSections(page, report);
}

void ShowPage(CReport& report, const Account& account) {
    PrepareBillFolders(report);
    const std::string path = PagePath(report);
    const double writing = LeastSecondsOf(kRepeats, [&] { WritePage(report, path); });
    std::string bytes;
    {
        std::ifstream file(path, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
    }
    const std::string copyPath = account.root + "/copy.html";
    const double once = LeastSecondsOf(kRepeats, [&] {
        CFile file(copyPath, FileMode::Create);
        static_cast<void>(file.Write(bytes));
    });
    std::printf("whole page / its bytes written once         %6.2f   (at most 3)   %.1f ms, %.1f MB\n", writing / once,
                writing * 1e3, static_cast<double>(bytes.size()) / 1e6);
}

/// Twelve pictures as a report saved them, ready to be encoded again.
std::vector<CBitmap> PicturesOf(const CReport& report) {
    std::vector<CBitmap> pictures;
    for (const auto& entry : std::filesystem::directory_iterator(report.ReportDocument.BillFolder + "/Image_files")) {
        if (entry.path().extension() != ".jpg") continue;
        const std::string bytes = CFile(entry.path().string(), FileMode::Read).ReadAll().value_or("");
        const PictureSize size = ReadPictureSize(entry.path().string());
        CBitmap& picture = pictures.emplace_back(size.width, size.height, kWhite);
        const tjhandle decoder = tjInitDecompress();
        // rows lie bottom-up, the lowest first
        tjDecompress2(decoder, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                      reinterpret_cast<unsigned char*>(picture.Row(size.height - 1)), size.width, 0, size.height,
                      TJPF_BGRX, TJFLAG_BOTTOMUP);
        tjDestroy(decoder);
    }
    return pictures;
}

/// A year of 20 trades a day with all of its output against reading the statements, writing the page and encoding the
/// pictures once.
void ShowWholeReport() {
    const Account account = MakeAccount("year-", kFewDays, {.trades = 20, .closed = 8, .positions = 10});
    CReport report;
    report.RootFolder = account.root;
    const double whole = LeastSecondsOf(kRepeats, [&] { RunReport(report, RequestFor(kFewDays), nullptr); });
    const std::string page = CFile(PagePath(report), FileMode::Read).ReadAll().value_or("");
    const std::vector<CBitmap> pictures = PicturesOf(report);
    std::size_t bytes = 0;
    const double reading = LeastSecondsOf(kRepeats, [&] {
        for (int day = 0; day < kFewDays; ++day) {
            bytes += CFile(account.paths[static_cast<std::size_t>(day)], FileMode::Read).ReadAll().value_or("").size();
        }
    });
    const double writing = LeastSecondsOf(kRepeats, [&] {
        CFile file(account.root + "/copy.html", FileMode::Create);
        static_cast<void>(file.Write(page));
    });
    const double encoding = LeastSecondsOf(kRepeats, [&] {
        for (const CBitmap& picture : pictures) static_cast<void>(SaveJpeg(picture, account.root + "/copy.jpg"));
    });
    std::printf(
        "whole report of %d days / unavoidable work %6.2f   (at most 3)   %.1f ms of %.1f reading, %.1f writing, "
        "%.1f encoding %zu pictures\n",
        kFewDays, whole / (reading + writing + encoding), whole * 1e3, reading * 1e3, writing * 1e3, encoding * 1e3,
        pictures.size());
    std::filesystem::remove_all(account.root);
}

/// Reading, statistics and page per row kept.
void ShowRowCosts(CReport& report, const Account& account) {
    double reading[2];
    double statistics[2];
    double page[2];
    int index = 0;
    for (const int days : {kFewDays, kManyDays}) {
        Prepare(report, account.root, RequestFor(days));
        ReadDays(report, account, days);
        reading[index] = LeastSecondsOf(kRepeats, [&] { ReadDays(report, account, days); }) / RowsKept(report);
        statistics[index] = LeastSecondsOf(kRepeats,
                                           [&report] {
                                               ComputeYields(report);
                                               ComputeAccountStatistics(report);
                                           }) /
                            RowsKept(report);
        page[index] = LeastSecondsOf(kRepeats, [&report] { WritePage(report, PagePath(report)); }) / RowsKept(report);
        ++index;
    }
    std::printf("cost per row, %d against %d days           %6.2f reading, %.2f statistics, %.2f page   (about 1)\n",
                kManyDays, kFewDays, reading[1] / reading[0], statistics[1] / statistics[0], page[1] / page[0]);
}

long PeakKilobytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// In a process of its own, before anything else has taken memory.
void ShowMemory(const Account& account) {
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
        const long before = PeakKilobytes();
        CReport report;
        report.RootFolder = account.root;
        RunReport(report, RequestFor(kManyDays), nullptr);
        const double taken = static_cast<double>(PeakKilobytes() - before) * 1024;
        std::printf("peak memory / bytes of all statements       %6.2f   (at most 4)   %.1f MB of %.1f MB\n",
                    taken / static_cast<double>(account.bytes), taken / 1e6, static_cast<double>(account.bytes) / 1e6);
        std::fflush(stdout);
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace tradebill

int main() {
    using namespace tradebill;
    const Account account = MakeAccount("", kManyDays, {});
    std::printf("%d days, %.1f MB of statements\n", kManyDays, static_cast<double>(account.bytes) / 1e6);
    ShowMemory(account);
    CReport report;
    Prepare(report, account.root, RequestFor(kManyDays));
    ShowReading(report, account);
    ShowLayouts();
    ShowPage(report, account);
    ShowRowCosts(report, account);
    std::filesystem::remove_all(account.root);
    ShowWholeReport();
    return 0;
}
