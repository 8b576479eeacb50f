// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/FetchedMaps.h"

#include "config/Ini.h"
#include "mapbook/paint/PagePainter.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Signals.h"
#include "util/Numbers.h"

namespace vexlator::mapbook {

namespace {

constexpr std::string_view fetchedImage = R"(c:\bkgnd.jpg)";

void WriteRequest(const BookPlan& plan, const PagePainter& page) {
    const drawing::Box ground = page.MapView().Ground();
    std::string window;
    for (double side : {ground.minX, ground.minY, ground.maxX, ground.maxY})
        window += (window.empty() ? "" : ",") + util::FormatFixed(side, 3);
    std::string size = std::to_string(page.MapArea().width) + "," + std::to_string(page.MapArea().height);
    config::WriteIniFile(plan.mapRequest, "BKGND", "PIXSIZE", size);
    config::WriteIniFile(plan.mapRequest, "BKGND", "WINDOW", window);
    config::WriteIniFile(plan.mapRequest, "BKGND", "SAVEVDF", "1");
}

}  // namespace

void FetchMaps(const BookPlan& plan, const render::Scene& scene, std::vector<BookPage>& pages,
               const std::string& folder, const std::function<void(std::string_view)>& tell) {
    if (plan.mapProgram.empty()) return;
    const BookContent content{plan, scene};
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (pages[i].kind == PageKind::Report) continue;
        WriteRequest(plan, PagePainter(content, pages[i]));
        platform::RemoveFile(fetchedImage);
        platform::RunProgram("\"" + plan.mapProgram + "\" GET", platform::ThrowIfStopped);
        std::string image = folder + "/map-" + std::to_string(i) + ".jpg";
        if (platform::FileExists(fetchedImage) && platform::RenameFile(fetchedImage, image))
            pages[i].backgroundImage = image;
        else
            tell("page " + pages[i].name + ": gvWorkFlowMaps has made no background");
    }
}

}  // namespace vexlator::mapbook
