#include "page/page_scripts.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "images/picture_names.h"
#include "page/html_builder.h"
#include "page/page_form.h"
#include "page/page_pictures.h"
#include "page/page_text.h"
#include "report/report.h"

namespace tradebill {
namespace {

// The scripts fold and unfold the sections; the classes are the whole visual vocabulary of tables, titles and notes.
// Odd names among them are part of the page.

constexpr std::string_view kForeignSummary[] = {"AccountDetail", "AccountFigure", "tabStatistics"};
constexpr std::string_view kSummary[] = {"account", "tabStatistics"};
constexpr std::string_view kAccount[] = {"tabStatistics"};
constexpr std::string_view kTrade[] = {"tabTrade"};
constexpr std::string_view kPositions[] = {"tabPositions"};
constexpr std::string_view kMatch[] = {"tabMatch"};
constexpr std::string_view kOffset[] = {"tabOffset", "offsetFigure"};

constexpr FoldScript kForeignSummaryScript{"clicksummary", "summarybtn", kForeignSummary};
constexpr FoldScript kSummaryScript{"clicksummary", "summarybtn", kSummary};
constexpr FoldScript kFoldScripts[] = {
    {"clickaccountstatistics", "accoutstatisticsbtn", kAccount},  // no element has this id: nothing calls it
    {"clickStatistics", "Statisticsbtn", kTrade},
    {"clickPositions", "Positionsbtn", kPositions},
    {"clickMatch", "Matchbtn", kMatch},
    {"clickOfferset", "Offersetbtn", kOffset},
};

/// The variable of target `i`: element1, element2 ...
std::string Variable(std::size_t i) {
    return Joined("element", static_cast<int>(i) + 1);
}

std::string ShowTargets(const FoldScript& script, std::string_view display) {
    std::string text;
    for (std::size_t i = 0; i < script.targets.size(); ++i) {
        Append(text, Variable(i), ".style.display='", display, "';\r\n");
    }
    return text;
}

std::string ScriptText(const CReport& report, const FoldScript& script) {
    std::string text = Joined("function ", script.function, "()\r\n{\r\n");
    Append(text, "element=document.getElementById('", script.buttonId, "');\r\n");
    for (std::size_t i = 0; i < script.targets.size(); ++i) {
        Append(text, Variable(i), "=document.getElementById('", script.targets[i], "');\r\n");
    }
    Append(text, "if (element.src.match(\"BillShrink\"))\r\n{\r\n");
    Append(text, "element.src=\"", ScriptPicturePath(report, kExpandPicture), "\";\r\n", ShowTargets(script, "none"));
    Append(text, "}\r\nelse\r\n{\r\n");
    Append(text, "element.src=\"", ScriptPicturePath(report, kShrinkPicture), "\";\r\n", ShowTargets(script, "block"));
    text += "}\r\n}\r\n";
    return text;
}

/// Of the account's pictures.
const FoldScript& SummaryScript(const CReport& report) {
    return report.IsForeign() ? kForeignSummaryScript : kSummaryScript;
}

constexpr std::string_view kSong = "宋体"_gbk;
constexpr std::string_view kRed = "rgb(200,0,0)";
constexpr std::string_view kGreen = "rgb(0,160,0)";
constexpr std::string_view kBlack = "rgb(0,0,0)";
constexpr std::string_view kGrey = "rgb(101,101,101)";

constexpr Style Plain(StyleTag tag, std::string_view className, std::string_view color) {
    return {.tag = tag, .className = className, .font = kSong, .size = 13, .color = color};
}

constexpr Style Bold(StyleTag tag, std::string_view className, std::string_view color, int marginBottom = -1) {
    return {.tag = tag,
            .className = className,
            .font = kSong,
            .size = 13,
            .bold = true,
            .color = color,
            .marginBottom = marginBottom};
}

// "span" stands for a plain row and "sum" for a total row; "bid" is red: buy side or positive amount; "ask" is green.
constexpr Style kStyles[] = {
    {.className = "billclr1", .background = "rgb(241,248,255)"},
    {.className = "billclr2", .background = "rgb(221,228,235)"},
    {.tag = StyleTag::Div,
     .className = "titletext",
     .font = "Arial",
     .size = 14,
     .bold = true,
     .color = "rgb(255,255,255)"},
    Plain(StyleTag::Span, "tradespanbid", kRed),
    Plain(StyleTag::Span, "tradespanask", kGreen),
    Plain(StyleTag::Span, "tradespannormal", kBlack),
    Bold(StyleTag::Span, "tradespansum", kBlack),
    Plain(StyleTag::Span, "offsetspanbid", kRed),
    Plain(StyleTag::Span, "offsetspanask", kGreen),
    Plain(StyleTag::Span, "offsetspannormal", kBlack),
    Bold(StyleTag::Span, "offsetsumbid", kRed),
    Bold(StyleTag::Span, "offsetsumask", kGreen),
    Bold(StyleTag::Span, "offsetsumnormal", kBlack),
    Plain(StyleTag::Div, "positiontext", kBlack),
    Plain(StyleTag::Span, "positionspanbid", kRed),
    Plain(StyleTag::Span, "positionspanask", kGreen),
    Plain(StyleTag::Span, "positionspannormal", kBlack),
    Bold(StyleTag::Div, "positionsum", kBlack),
    Bold(StyleTag::Span, "positionsumbid", kRed),
    Bold(StyleTag::Span, "positionsumask", kGreen),
    Bold(StyleTag::Span, "positionsumnormal", kBlack),
    Plain(StyleTag::Span, "matchspannormal", kBlack),
    Plain(StyleTag::Span, "matchspanbid", kRed),
    Plain(StyleTag::Span, "matchspanask", kGreen),
    Bold(StyleTag::Span, "matchsumnormal", kBlack),
    Bold(StyleTag::Span, "matchsumbid", kRed),
    Bold(StyleTag::Span, "matchsumask", kGreen),
    Plain(StyleTag::P, "reporteptext", kGrey),
    Bold(StyleTag::H5, "reporteptitle", kGrey, 1),
    Bold(StyleTag::Div, "reportep", kGrey),
};

}  // namespace

const FoldScript* FindFoldScript(const CReport& report, std::string_view function) {
    if (function == SummaryScript(report).function) return &SummaryScript(report);
    const auto* const found = std::ranges::find(kFoldScripts, function, &FoldScript::function);
    return found == std::end(kFoldScripts) ? nullptr : found;
}

std::string FoldScripts(const CReport& report) {
    std::string text = "<script>\r\n";
    text += ScriptText(report, SummaryScript(report));
    for (const FoldScript& script : kFoldScripts) text += ScriptText(report, script);
    text += "</script>\r\n";
    return text;
}

void AddPageScripts(CHtmlBuilder& page, const CReport& report) {
    page.AddByForm([&report](const CPageForm& form) { return form.Scripts(report); });
    for (Style style : kStyles) {
        style.size = style.size > 0 ? report.Scaled(style.size) : style.size;
        page.AddStyle(style);
    }
}

}  // namespace tradebill
