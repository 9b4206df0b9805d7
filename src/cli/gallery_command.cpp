#include "cli/gallery_command.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <iostream>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/gallery_charts.h"
#include "cli/output_file.h"
#include "cli/shown_text.h"
#include "cli/watched_run.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "platform/paths.h"
#include "platform/terminal.h"

namespace tradebill {
namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>tradebill gallery</title>
<style>
body { font-family: sans-serif; margin: 24px; color: #383838; }
section { display: flex; flex-wrap: wrap; gap: 16px; }
figure { margin: 0; }
img { width: 500px; border: 1px solid #d7d7d7; }
figcaption { font-size: 13px; padding: 4px 0; }
</style>
</head>
<body>
<h1>All kinds of charts</h1>
)";

std::string FigureOf(const GalleryChart& chart) {
    return "<figure><img src=\"" + chart.fileName + "\" alt=\"" + chart.section + "\"><figcaption>" + chart.caption +
           "</figcaption></figure>\n";
}

std::string PageOf(const std::vector<GalleryChart>& charts) {
    std::string page(kHead);
    std::string_view section;
    for (const GalleryChart& chart : charts) {
        if (chart.section != section) {
            if (!section.empty()) page += "</section>\n";
            section = chart.section;
            page += "<h2>" + chart.section + "</h2>\n<section>\n";
        }
        page += FigureOf(chart);
    }
    return page + "</section>\n</body>\n</html>\n";
}

void Paint(const GalleryChart& chart, const std::string& path) {
    CBitmap bitmap(chart.width, chart.height, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    chart.make()->DrawGraph(*canvas, {0, 0, chart.width, chart.height});
    if (!SavePng(bitmap, path)) throw std::runtime_error("cannot write " + path);
}

}  // namespace

CommandRun DeclareGallery(CLI::App& app) {
    const auto folder = std::make_shared<std::string>();
    app.add_option("DIR", *folder, "Where to")->required()->type_name("");
    return [folder] { return RunGalleryCommand(*folder); };
}

int RunGalleryCommand(const std::string& folder) {
    if (!MakeFolders(folder)) throw std::runtime_error("cannot make the folder " + folder);
    const std::string pagePath = folder + "/index.html";
    const COutputFile page("DIR", pagePath);
    const std::vector<GalleryChart> charts = GalleryCharts();
    CAwaitedWork work(!IsErrorOutputTerminal());
    for (std::size_t i = 0; i < charts.size(); ++i) {
        work.BeginStep("charts", i + 1, charts.size());
        Paint(charts[i], folder + "/" + charts[i].fileName);
    }
    work.Rest();
    const auto writePage = [&charts](std::ostream& out) {
        out << PageOf(charts);
        return true;
    };
    if (!page.Save(writePage)) throw std::runtime_error("cannot write " + pagePath);
    std::cout << charts.size() << " charts: " << ShownText(NativePath(pagePath)) << "\n";
    return FinishPainting();
}

}  // namespace tradebill
