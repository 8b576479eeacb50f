// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlFeature.h"

#include <cstddef>
#include <memory>
#include <span>

namespace vexlator::background {

/// A feature's type, properties and places as bytes.
class FeatureBytes {
public:
    FeatureBytes();
    ~FeatureBytes();
    FeatureBytes(const FeatureBytes&) = delete;
    FeatureBytes& operator=(const FeatureBytes&) = delete;

    /// Good until the next call.
    std::span<const std::byte> Of(const formats::GmlFeature& feature);

private:
    struct Builder;
    std::unique_ptr<Builder> builder_;
};

/// What those bytes hold. False when they are damaged.
bool ReadFeatureBytes(std::span<const std::byte> bytes, formats::GmlFeature& feature);

}  // namespace vexlator::background
