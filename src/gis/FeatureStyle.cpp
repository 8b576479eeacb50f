// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/FeatureStyle.h"

#include "platform/CodePages.h"
#include "util/Angles.h"

#include <memory>
#include <ogr_featurestyle.h>
#include <string_view>

namespace vexlator::gis {

namespace {

struct DestroyManager {
    void operator()(OGRStyleMgrH manager) const { OGR_SM_Destroy(manager); }
};
struct DestroyTool {
    void operator()(OGRStyleToolH tool) const { OGR_ST_Destroy(tool); }
};
using Tool = std::unique_ptr<void, DestroyTool>;

template <typename Visit>
void ForEachTool(OGRFeatureH feature, Visit visit) {
    const char* style = OGR_F_GetStyleString(feature);
    if (!style || !*style) return;
    std::unique_ptr<void, DestroyManager> manager(OGR_SM_Create(nullptr));
    OGR_SM_InitStyleString(manager.get(), style);
    for (int i = 0; i < OGR_SM_GetPartCount(manager.get(), nullptr); ++i)
        if (Tool tool{OGR_SM_GetPart(manager.get(), i, nullptr)}) visit(tool.get());
}

std::string TextParameter(OGRStyleToolH tool, int parameter) {
    int isNull = 0;
    const char* text = OGR_ST_GetParamStr(tool, parameter, &isNull);
    return isNull || !text ? "" : platform::AsUtf8(text);
}

double NumberParameter(OGRStyleToolH tool, int parameter) {
    int isNull = 0;
    double value = OGR_ST_GetParamDbl(tool, parameter, &isNull);
    return isNull ? 0 : value;
}

}  // namespace

std::optional<Label> LabelOf(OGRFeatureH feature) {
    const char* style = OGR_F_GetStyleString(feature);
    if (!style || std::string_view(style).find("LABEL(") == std::string_view::npos) return std::nullopt;
    std::optional<Label> label;
    ForEachTool(feature, [&](OGRStyleToolH tool) {
        if (OGR_ST_GetType(tool) != OGRSTCLabel) return;
        OGR_ST_SetUnit(tool, OGRSTUGround, 1);
        label = Label{.text = TextParameter(tool, OGRSTLabelTextString),
                      .font = TextParameter(tool, OGRSTLabelFontName),
                      .height = NumberParameter(tool, OGRSTLabelSize),
                      .angle = NumberParameter(tool, OGRSTLabelAngle) / util::degreesPerRadian,
                      .shiftX = NumberParameter(tool, OGRSTLabelDx),
                      .shiftY = NumberParameter(tool, OGRSTLabelDy),
                      .colour = TextParameter(tool, OGRSTLabelFColor)};
        if (double anchor = NumberParameter(tool, OGRSTLabelAnchor); anchor >= 1 && anchor <= 12)
            label->anchor = static_cast<int>(anchor);
    });
    return label;
}

Look LookOf(OGRFeatureH feature) {
    Look look;
    ForEachTool(feature, [&](OGRStyleToolH tool) {
        OGRSTClassId kind = OGR_ST_GetType(tool);
        if (kind == OGRSTCPen) {
            OGR_ST_SetUnit(tool, OGRSTUGround, 1);  // as the text has it
            look.pen = TextParameter(tool, OGRSTPenColor);
            look.width = NumberParameter(tool, OGRSTPenWidth);
        } else if (kind == OGRSTCBrush) {
            look.brush = TextParameter(tool, OGRSTBrushFColor);
        }
    });
    return look;
}

}  // namespace vexlator::gis
