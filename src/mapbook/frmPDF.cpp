// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/frmPDF.h"

#include "config/OutsideProgram.h"
#include "config/Waiting.h"
#include "coords/TransformationSetting.h"
#include "drawing/SymbolBlock.h"
#include "drawing/Vdf.h"
#include "export/photos/Photos.h"
#include "mapbook/PageLayout.h"
#include "mapbook/Symbols.h"
#include "mapbook/pages/PageList.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/ScratchFolder.h"
#include "util/Counted.h"
#include "util/Dates.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Programs.h"
#include "util/Text.h"
#include "workflow/WorkflowDatabase.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace vexlator::mapbook {

namespace {

constexpr double wholeJobDenominator = 500;

/// Where the JPEG-to-PDF program of other makers is installed.
constexpr std::string_view joinerPlaces[] = {R"(c:\program files\jpg2pdf24\jpg2pdf.exe)",
                                             R"(c:\program files\jpg2pdf24r\jpg2pdf.exe)",
                                             R"(d:\program files\jpg2pdf24\jpg2pdf.exe)"};

/// "" when there is none.
std::string InstalledJoiner() {
    for (std::string_view place : joinerPlaces)
        if (platform::FileExists(place)) return std::string(place);
    return "";
}

bool DrawsPdf(const BookSettings& settings) {
    return settings.vector.empty() ? InstalledJoiner().empty() : settings.vector == "1";
}

bool NeedsPreparation(const BookSettings& settings) {
    return !settings.symbolSize.empty() || settings.annotatesLinks || settings.surveyLayout;
}

/// Texts have to be legible on the page with the smallest scale.
LayoutSizes SizesFor(const std::vector<PageFrame>& frames, const BookSettings& settings) {
    double denominator = frames.empty() ? wholeJobDenominator : 0;
    for (const PageFrame& frame : frames)
        denominator = std::max(denominator, LayoutFor(frame.ground, {.paper = settings.paper}).denominator);
    return LayoutSizes::ForScale(denominator);
}

/// The background package beside a drawing; "" when there is none.
std::string PackageOf(const BookSettings& settings, std::string_view drawingPath) {
    if (!settings.background) return "";
    std::string name = util::BaseNameOf(drawingPath) + ".GRP";
    for (const std::string& path : {settings.package, util::ChangeExtension(drawingPath, "GRP"),
                                    util::JoinPath(util::ChangeExtension(drawingPath, ""), name)})
        if (!path.empty() && platform::FileExists(path)) return platform::AbsolutePath(path);
    return "";
}

/// Native.
std::string LogoPath(const config::Run& run, std::string_view name) {
    return platform::FindExisting(
        util::JoinPath(util::JoinPath(run.Settings().ProgramFolder, "Resources"), name));
}

std::string SystemOf(const config::Run& run) {
    try {
        return coords::ReadTransformationSetting(run).DrawingSystem();
    } catch (const platform::ReadError&) {
        return "";
    }
}

/// What the printer says: lines "progress N M", "message: TEXT", "result LAYERS FEATURES".
template <typename Visit>
void ForEachLine(const std::string& output, std::string_view begin, Visit visit) {
    util::LineReader lines(output);
    while (!lines.AtEnd()) {
        std::string_view line = lines.ReadTextLine();
        if (line.starts_with(begin)) visit(line.substr(begin.size()));
    }
}

}  // namespace

config::Outcome frmPDF::Start(std::string_view drawingPath, std::string_view targetPath) {
    return Produce(ReadBookSettings(run_), drawingPath, targetPath);
}

config::Outcome frmPDF::btnPrintNow_Click(const BookSettings& settings, std::string_view drawingPath,
                                          std::string_view targetPath) {
    WriteBookSettings(run_, settings);
    return Produce(settings, drawingPath, targetPath);
}

config::Outcome frmPDF::Produce(const BookSettings& settings, std::string_view drawingPath,
                                std::string_view targetPath) {
    view_ = run_.Ui().ShowForm("frmPDF");
    view_->SetCaption(":" + util::BaseNameOf(drawingPath));
    config::Outcome outcome;
    platform::ScratchFolder scratch;
    BookPlan plan;
    {
        drawing::DrawingFile file(drawingPath);
        exporter::ReadJobSource(run_, file.Current().properties());
        if (!workflow::ConfirmExportAllowed(run_)) {
            outcome.status = config::Outcome::Status::StoppedByUser;
            return outcome;
        }
        plan = PlanOf(settings, drawingPath, targetPath);
        plan.frames = FramesOf(file, settings);
    }
    plan.drawing = platform::AbsolutePath(drawingPath);
    if (NeedsPreparation(settings)) {
        drawing_.open(drawingPath);
        Prepare(settings, SizesFor(plan.frames, settings));
        plan.drawing = scratch.Path() + "/prepared.VDF";
        drawing_.saveAs(plan.drawing);
        drawing_.clear();
    }
    platform::RequireFolder(plan.folder);
    if (std::string told = platform::RemoveLeftovers(plan.folder); !told.empty()) run_.Ui().Report(told);
    outcome.target = plan.drawsPdf ? plan.PathOf("PDF") : plan.folder;
    if (!Print(plan, scratch.Path(), outcome)) return outcome;
    if (plan.listsPages) JoinImages(plan);
    view_->SetLabel("Completed!");
    if (run_.Settings().AutoLaunchExport && settings.toPdf) util::OpenDocument(plan.PathOf("PDF"));
    return outcome;
}

BookPlan frmPDF::PlanOf(const BookSettings& settings, std::string_view drawingPath,
                        std::string_view targetPath) {
    BookPlan plan;
    plan.symbolsFolder = run_.Settings().SymbolsDirectory;
    if (settings.background) plan.mapProgram = config::FindSuiteProgram(run_, "gvWorkFlowMaps.exe");
    if (plan.mapProgram.empty()) plan.package = PackageOf(settings, drawingPath);
    plan.mapRequest = util::JoinPath(run_.Settings().ConfigFolder, "gvWorkFlowMaps.ini");
    plan.hasReport = settings.surveyLayout;
    plan.logos = {LogoPath(run_, "KVR Logo.jpg"), LogoPath(run_, "Dunlevy Logo.jpg")};
    if (settings.background && plan.mapProgram.empty() && plan.package.empty())
        run_.Ui().Report("no background package beside " + platform::NativePath(drawingPath) +
                         ", and [PDF] Package names none: the pages have no background");
    plan.folder = platform::AbsolutePath(FolderFor(settings, targetPath));
    plan.job = util::BaseNameOf(drawingPath);
    plan.drawsPdf = settings.toPdf && DrawsPdf(settings);
    plan.listsPages = settings.toPdf && !plan.drawsPdf;
    plan.images = settings.images || !plan.drawsPdf;
    plan.framesLayer = settings.seqFeature;
    plan.paper = settings.paper;
    plan.grid = settings.grid;
    plan.least = settings.minSpace;
    plan.most = LargestPage(settings);
    plan.system = SystemOf(run_);
    plan.date = util::SlashDateText(run_.Now());
    plan.titles = ReadJobData(run_, drawingPath);
    return plan;
}

std::string frmPDF::FolderFor(const BookSettings& settings, std::string_view targetPath) const {
    if (settings.folder == "." || !run_.Options().folder.empty()) return std::string(targetPath);
    return settings.folder.empty() ? util::JoinPath(run_.Settings().ConfigFolder, "Temp") : settings.folder;
}

std::vector<PageFrame> frmPDF::FramesOf(drawing::DrawingFile& file, const BookSettings& settings) {
    return FindFrames(file,
                      {.layer = settings.seqFeature,
                       .least = settings.minSpace,
                       .most = LargestPage(settings),
                       .symbolsFolder = run_.Settings().SymbolsDirectory},
                      [this](std::string_view line) { run_.Ui().ShowMessage(line); });
}

// --- The drawing in print

void frmPDF::Prepare(const BookSettings& settings, const LayoutSizes& sizes) {
    const std::string active = drawing_.activeLayerName();
    ScaleSymbols(settings.symbolSize);
    if (settings.annotatesLinks) Annotate(drawing_, "HOTLINK", "", "HOTANNO", sizes);
    if (settings.surveyLayout) ApplySurveyLayout(sizes);
    drawing_.setActiveLayer(active);
}

void frmPDF::ApplySurveyLayout(const LayoutSizes& sizes) {
    AnnotateSurvey(drawing_, sizes);
    DefineComplexLineStyles();
    StylePolylines(drawing_);
    DrawTadpoles(drawing_, sizes);
}

void frmPDF::ScaleSymbols(const std::string& size) {
    double scale = util::NumberOf(size);
    if (!(scale > 0)) return;
    drawing_.forEach([&](drawing::Entity entity) {
        if (entity.kindCode() != drawing::Kind::Insert) return;
        drawing::Shape shape = entity.shape();
        shape.scaleX = shape.scaleY = scale;
        entity.setShape(shape);
    });
}

void frmPDF::DefineSymbol(std::string_view name, void (*draw)(drawing::Drawing&)) {
    if (drawing_.findBlock(name)) return;
    std::string path = util::JoinPath(run_.Settings().SymbolsDirectory, std::string(name) + ".VDF");
    if (util::FileSize(path) > 0 && !drawing::EnsureSymbolBlock(run_, name, drawing_).empty()) return;
    drawing::Drawing symbol;
    draw(symbol);
    drawing_.addBlock({std::string(name), drawing::VdfBytes(symbol)});
}

void frmPDF::DefineComplexLineStyles() {
    DefineSymbol(arrowSymbol, DrawArrow);
    DefineSymbol(tadpoleSymbol, DrawTadpole);
}

void frmPDF::EraseLayer(std::string_view name) {
    drawing::SelectionSet entities = drawing_.selectLayer(name);
    for (std::size_t i = 0; i < entities.count(); ++i) entities.item(i).erase();
}

config::Outcome frmPDF::ReStyle(std::string_view drawingPath, std::string_view targetPath) {
    view_ = run_.Ui().ShowForm("frmPDF");
    view_->SetCaption(":" + util::BaseNameOf(drawingPath));
    config::Outcome outcome;
    std::vector<PageFrame> frames;
    BookSettings settings = ReadBookSettings(run_);
    {
        drawing::DrawingFile file(drawingPath);
        exporter::ReadJobSource(run_, file.Current().properties());
        if (!workflow::ConfirmExportAllowed(run_)) {
            outcome.status = config::Outcome::Status::StoppedByUser;
            return outcome;
        }
        frames = FramesOf(file, settings);
    }
    drawing_.open(drawingPath);
    const std::string active = drawing_.activeLayerName();
    ApplySurveyLayout(SizesFor(frames, settings));
    drawing_.setActiveLayer(active);
    bool isCopied = !run_.Options().folder.empty();
    outcome.target =
        isCopied ? util::JoinPath(targetPath, util::FileNameOf(drawingPath)) : std::string(drawingPath);
    outcome.layers = drawing_.layerCount();
    outcome.features = drawing_.entityCount();
    drawing_.saveAs(outcome.target);
    view_->SetLabel("Completed!");
    return outcome;
}

// --- The book

bool frmPDF::Print(const BookPlan& plan, const std::string& scratch, config::Outcome& outcome) {
    std::string program = config::FindSuiteProgram(run_, "MapBookPrinter.exe");
    if (program.empty())
        throw std::runtime_error(
            "map books need the program MapBookPrinter, which the package vexlator-tools brings");
    std::string planPath = scratch + "/book.ini";
    platform::ReplaceFile(planPath, BookPlanText(plan));
    config::OutsideProgram printer(run_, program, "\"" + planPath + "\"");
    auto showProgress = [&] {
        std::string_view last;
        ForEachLine(printer.Output(), "progress ", [&](std::string_view line) { last = line; });
        if (last.empty()) return view_->Progress(0, 0);
        view_->Progress(static_cast<std::uint64_t>(util::NumberOf(util::GetField(0, last, " "))),
                        static_cast<std::uint64_t>(util::NumberOf(util::GetField(1, last, " "))));
    };
    bool isDone = printer.WaitForEnd(showProgress);
    ForEachLine(printer.Output(), "message: ", [&](std::string_view line) { run_.Ui().ShowMessage(line); });
    ForEachLine(printer.Output(), "note: ", [&](std::string_view line) { run_.Ui().Report(line); });
    if (!isDone) {
        run_.Ui().ShowMessage(printer.Problem());
        outcome.status = config::Outcome::Status::Failed;
        return false;
    }
    ForEachLine(printer.Output(), "result ", [&](std::string_view line) {
        outcome.layers = static_cast<std::uint64_t>(util::NumberOf(util::GetField(0, line, " ")));
        outcome.features = static_cast<std::uint64_t>(util::NumberOf(util::GetField(1, line, " ")));
    });
    return true;
}

void frmPDF::JoinImages(const BookPlan& plan) {
    std::string joiner = InstalledJoiner(), list = plan.PathOf("CFG");
    if (joiner.empty()) joiner = config::FindSuiteProgram(run_, "jpg2pdf.exe");
    if (joiner.empty()) {
        platform::RemoveFile(list);
        run_.Ui().Report("there is no jpg2pdf: the page images stay, and no PDF file is made");
        return;
    }
    PageList pages = ReadPageList(platform::ReadWholeFile(list));
    std::string first = pages.pages.empty() ? "" : pages.pages.front().image;
    config::OutsideProgram program(run_, joiner,
                                   "\"" + platform::NativePath(first) + "\" -c \"" +
                                       platform::NativePath(list) + "\" -o \"" +
                                       platform::NativePath(plan.PathOf("PDF")) + "\"");
    if (!program.WaitForEnd([this] { view_->Progress(0, 0); })) run_.Ui().ShowMessage(program.Problem());
    config::Pause(run_.Ui(), 1);
    platform::RemoveFile(list);
}

}  // namespace vexlator::mapbook
