// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/LeastSquares.h"

#include <algorithm>
#include <cmath>

namespace vexlator::georef {

namespace {

/// If the remainder of a column after removing the earlier columns is below this part of its length, it is
/// noise.
constexpr double smallestPivot = 1e-6;

double Length(const std::vector<Observation>& rows, std::size_t column, std::size_t from) {
    double sum = 0;
    for (std::size_t i = from; i < rows.size(); ++i) sum += rows[i].factors[column] * rows[i].factors[column];
    return std::sqrt(sum);
}

/// Reflects the rows from `step` on, so that the column with that number becomes 0 below its first element.
void Reflect(std::vector<Observation>& rows, std::size_t step, std::size_t count) {
    double length = Length(rows, step, step);
    double pivot = rows[step].factors[step] > 0 ? -length : length;
    std::vector<double> normal(rows.size());
    for (std::size_t i = step; i < rows.size(); ++i) normal[i] = rows[i].factors[step];
    normal[step] -= pivot;
    double square = 0;
    for (double value : normal) square += value * value;
    auto reflect = [&](auto member) {
        double dot = 0;
        for (std::size_t i = step; i < rows.size(); ++i) dot += normal[i] * member(rows[i]);
        for (std::size_t i = step; i < rows.size(); ++i) member(rows[i]) -= 2 * dot / square * normal[i];
    };
    for (std::size_t column = step; column < count; ++column)
        reflect([column](Observation& row) -> double& { return row.factors[column]; });
    reflect([](Observation& row) -> double& { return row.first; });
    reflect([](Observation& row) -> double& { return row.second; });
}

}  // namespace

std::optional<Terms> SolveLeastSquares(std::vector<Observation> rows, std::size_t count) {
    if (rows.size() < count) return std::nullopt;
    for (std::size_t step = 0; step < count; ++step) {
        double whole = Length(rows, step, 0);
        if (!(Length(rows, step, step) > whole * smallestPivot)) return std::nullopt;
        Reflect(rows, step, count);
    }
    Terms terms;
    for (std::size_t i = count; i-- > 0;) {
        double first = rows[i].first, second = rows[i].second;
        for (std::size_t j = i + 1; j < count; ++j) {
            first -= rows[i].factors[j] * terms.first[j];
            second -= rows[i].factors[j] * terms.second[j];
        }
        terms.first[i] = first / rows[i].factors[i];
        terms.second[i] = second / rows[i].factors[i];
    }
    return terms;
}

}  // namespace vexlator::georef
