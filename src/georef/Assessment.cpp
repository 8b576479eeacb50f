// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/Assessment.h"

#include "georef/Ground.h"
#include "util/Geometry.h"

namespace vexlator::georef {

namespace {

std::optional<Residual> ResidualOf(const Fit& fit, const PointEntry& entry, int number) {
    std::optional<util::PlanePoint> pixel = ReadNumberPair(entry.pixel),
                                    ground = ReadNumberPair(entry.ground);
    if (!pixel || !ground) return std::nullopt;
    std::optional<util::PlanePoint> back = fit.Pixel(*ground, *pixel);
    util::PlanePoint found = fit.Ground(*pixel);
    return Residual{number, util::Distance(found.x, found.y, ground->x, ground->y),
                    back ? util::Distance(back->x, back->y, pixel->x, pixel->y) : 0};
}

}  // namespace

Assessment Assess(const PointEntries& entries, Fit::Order order) {
    Assessment assessment;
    assessment.residuals.resize(entries.size());
    try {
        assessment.fit.emplace(PointsForFit(entries), order);
    } catch (const FitError& error) {
        assessment.said = error.reason;
        return assessment;
    }
    const Fit& fit = *assessment.fit;
    assessment.said = fit.Description();
    if (fit.IsMirrored())
        assessment.said +=
            InWords("vexlator", "; the image lies mirrored: are two points, or x and y, exchanged?");
    for (const Residual& residual : fit.Residuals())
        assessment.residuals[static_cast<std::size_t>(residual.number) - 1] = residual;
    std::size_t count = CountComplete(entries);
    for (std::size_t i = 0; i < count; ++i)
        if (entries[i].isLeftOut)
            assessment.residuals[i] = ResidualOf(fit, entries[i], static_cast<int>(i) + 1);
    if (fit.IsChecked()) assessment.worst = fit.Residuals().front().number;
    return assessment;
}

}  // namespace vexlator::georef
