// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/FeatureLayer.h"

#include "drawing/AttributeTemplate.h"
#include "import/FeatureCode.h"
#include "util/Paths.h"

namespace vexlator::importer {

std::string SelectFeatureLayer(config::Run& run, drawing::Drawing& drawing, std::string_view code) {
    drawing.setActiveLayer(code);
    drawing.setActiveStyle({});
    std::string style = drawing::ReadAtpStyle(run, code);
    if (style.empty())
        drawing.setActiveColourIndex(static_cast<drawing::Colour>(drawing.layerCount()));
    else
        drawing.setActiveColour(StyleColour(style));
    return style;
}

std::string FeatureTemplatePath(const config::Run& run, std::string_view code) {
    return util::JoinPath(run.Settings().ATPDirectory, util::SafeFileName(code) + ".ATP");
}

void OfferTemplates(config::Run& run, const config::ConversionReport& report) {
    for (const config::ConversionReport::Template& offer : report.templates)
        drawing::GenerateAtp(run, FeatureTemplatePath(run, offer.code), offer.names, offer.widths);
}

}  // namespace vexlator::importer
