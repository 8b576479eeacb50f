// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/LossReport.h"
#include "config/Outcome.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::config {

/// What a program that converts for another one tells it at its end.
struct ConversionReport {
    struct Line {
        bool isMessage = false;  ///< to be confirmed, as opposed to a plain line
        std::string text;
    };
    /// A feature code that may get an attribute template; the user decides.
    struct Template {
        std::string code;
        std::vector<std::string> names = {};
        std::vector<int> widths = {};
    };

    struct Loss {
        LossReport::Kind kind;
        std::string layer, field;
        std::uint64_t values = 0;
    };

    /// Notes values that the output could not hold; 0 are none.
    void Lose(LossReport::Kind kind, std::string_view layer, std::string_view field,
              std::uint64_t values = 1);
    /// Adds the losses to a run's.
    void AddLossesTo(LossReport& report) const;

    std::vector<Line> lines;
    std::vector<Template> templates;
    std::vector<Loss> losses;
    Outcome outcome;
    std::string error;  ///< what ended the conversion; "" if nothing did

    std::string Text() const;
};

/// Reads what ConversionReport::Text() wrote. Lines that it does not know are left out.
ConversionReport ReadConversionReport(std::string_view text);

}  // namespace vexlator::config
