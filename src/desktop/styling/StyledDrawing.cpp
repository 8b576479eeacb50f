// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/styling/StyledDrawing.h"

#include "background/builder/AnnotationPreview.h"
#include "background/builder/frmGRP.h"
#include "desktop/application/Texts.h"
#include "platform/Paths.h"
#include "render/DrawingScene.h"
#include "render/package/PackageScene.h"
#include "startup/Conversions.h"
#include "startup/go/SourceConversion.h"
#include "util/Paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

namespace vexlator::desktop {

namespace {

std::unique_ptr<drawing::Drawing> ReadChanged(const DrawingOrder& order) {
    auto drawing = std::make_unique<drawing::Drawing>();
    drawing->open(order.path);
    background::ApplyChanges(order.changes, *drawing);
    return drawing;
}

}  // namespace

std::shared_ptr<const StyledDrawing> ReadStyledDrawing(config::Run& run, const DrawingOrder& order) {
    auto shown = std::make_shared<StyledDrawing>();
    shown->order = order;
    shown->drawing = ReadChanged(order);
    shown->layers = background::LayerNames(*shown->drawing);
    shown->attributes = background::AttributeNames(*shown->drawing);
    if (order.annotation)
        background::AddAnnotationTexts(*shown->drawing, order.annotation->annotationFields,
                                       order.annotation->FixedAnnotationHeight(), run.Ui());
    render::SceneOptions options;
    options.symbolsFolder = run.Settings().SymbolsDirectory;
    options.tell = [&](std::string_view line) { run.Ui().Report(line); };
    shown->scene = std::make_shared<render::Scene>(SceneOfDrawing(*shown->drawing, options));
    return shown;
}

void SaveStyledDrawing(const DrawingOrder& order, const std::string& path) {
    ReadChanged(order)->saveAs(path);
}

std::string DrawingOfSource(config::Run& run, const std::string& source, const std::string& folder) {
    const startup::Conversions conversions = startup::AllConversions();
    const startup::SelectionSettings choices;
    std::string drawing = startup::SourceConversion(run, conversions, choices).ConvertGIStoVDF(source);
    if (drawing.empty()) throw std::runtime_error("no drawing came of " + platform::NativePath(source));
    if (drawing == source) return source;
    // Conversions that follow would replace it where it is.
    QString own = QDir(Text(folder)).filePath(Text(util::FileNameOf(drawing)));
    QFile::remove(own);
    QFile converted(Text(platform::NativePath(drawing)));
    if (!converted.rename(own)) throw std::runtime_error(converted.errorString().toStdString());
    return own.toStdString();
}

std::shared_ptr<const render::Scene> DeviceScene(config::Run& run, const DrawingOrder& order,
                                                 const background::BackgroundStyle& style, bool simple) {
    config::Installation installation(run.Installation());
    installation.Override({"GRP", "CREATEDXF", "0"});
    config::Run preview(installation, run.UnloggedUi());
    QTemporaryDir folder;
    if (!folder.isValid()) throw std::runtime_error(folder.errorString().toStdString());
    auto inFolder = [&](const char* name) { return folder.filePath(QLatin1String(name)).toStdString(); };
    const std::string drawing = inFolder("PREVIEW.VDF"), styleFile = inFolder("PREVIEW.BSF"),
                      package = inFolder("PREVIEW.GRP");
    SaveStyledDrawing(order, drawing);
    background::SaveBackgroundStyle(styleFile, style, simple);
    background::frmGRP(preview).Start(drawing, package, styleFile);
    const background::MobileStyles mobileStyles(
        background::ReadStyleText(installation.ReadIni("MOBILESTYLING", "FILE")));
    return std::make_shared<render::Scene>(render::SceneOfPackage(package, {}, mobileStyles));
}

}  // namespace vexlator::desktop
