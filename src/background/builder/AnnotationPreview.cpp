// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/AnnotationPreview.h"

#include "background/builder/Annotation.h"
#include "background/builder/Outline.h"
#include "background/builder/Symbols.h"
#include "background/styling/AnnotationText.h"

#include <cmath>
#include <vector>

namespace vexlator::background {

namespace {

using drawing::Kind;

struct Annotated {
    AnnotationPlace place;
    std::string text;
};

/// Where features are annotated, in a drawing that stays as it is meanwhile.
class AnnotationPlaces {
public:
    AnnotationPlaces(drawing::Drawing& drawing, ui::UserInterface& userInterface)
        : symbols_(drawing, userInterface) {}

    std::optional<AnnotationPlace> Of(const drawing::Entity& entity) {
        if (entity.vertexCount() == 0) return std::nullopt;
        util::PlanePoint at = entity.planVertices().front();
        switch (entity.kindCode()) {
            case Kind::Point:
                return AnnotationPlace{at};
            case Kind::Insert:
                return AnnotationPlace{at, symbols_.SizeOf(entity) * annotationPerSymbol};
            case Kind::Polyline:
                outline_.TakePolyline(entity, nullptr);
                return outline_.IsClosed() ? PlaceInOutline(outline_.Points())
                                           : PlaceAlongLine(outline_.Points());
            default:
                return std::nullopt;
        }
    }

private:
    Symbols symbols_;
    Outline outline_;
};

/// Each line below the one before. Packages place a text by its upper edge, drawings by its baseline.
void AddLines(drawing::Drawing& drawing, const Annotated& annotated) {
    const AnnotationPlace& place = annotated.place;
    double right = std::sin(place.angle) * place.height, down = std::cos(place.angle) * place.height;
    ForEachAnnotationLine(annotated.text, [&](std::string_view line, std::size_t index) {
        double lines = double(index) + 1;
        drawing.addText({place.at.x + right * lines, place.at.y - down * lines}, line, place.height,
                        place.angle);
    });
}

}  // namespace

void AddAnnotationTexts(drawing::Drawing& drawing, std::span<const ListedName> fields,
                        std::optional<double> fixedHeight, ui::UserInterface& userInterface) {
    AnnotationText texts(fields);
    AnnotationPlaces places(drawing, userInterface);
    std::vector<Annotated> found;
    drawing.forEach([&](const drawing::Entity& entity) {
        std::string_view text = texts.BuildAnnotationText(entity);
        if (text.empty()) return;
        std::optional<AnnotationPlace> place = places.Of(entity);
        if (!place) return;
        if (fixedHeight && *fixedHeight > 0) place->height = *fixedHeight;
        found.push_back({*place, std::string(text)});
    });
    std::string active = drawing.activeLayerName();
    drawing.setActiveLayer(annotationLayer);
    for (const Annotated& annotated : found) AddLines(drawing, annotated);
    drawing.setActiveLayer(active);
}

}  // namespace vexlator::background
