// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <simdjson.h>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

/// Typed reading of parsed JSON.
namespace vexlator::vdfjson {

using simdjson::dom::element;

/// A value that cannot be used, as "vdf.colour: is not a whole number ...". Callers that know the feature
/// convert it to a platform::ReadError.
class BadValue : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    BadValue(const std::string& member, const char* reason) : std::runtime_error(member + ": " + reason) {}
};

/// Parses one value, which stays valid until the next one is parsed.
class JsonParser {
public:
    /// @throws BadValue
    element Parse(std::string_view text);

private:
    simdjson::dom::parser parser_;
};

/// The text, whole number and so on of a value. @throws BadValue
std::string_view TextOf(element value);
double NumberOf(element value);
std::int64_t WholeNumberOf(element value, std::int64_t least, std::int64_t most);
bool FlagOf(element value);
simdjson::dom::array ArrayOf(element value);
simdjson::dom::object ObjectOf(element value);

/// The members of an object with known names, each found once. Unknown members are ignored. The last of
/// repeated members counts. Null means a missing member.
class Members {
public:
    static constexpr std::size_t Most = 32;

    /// `prefix` precedes the names in errors, as in "vdf.". The names must outlive the object.
    Members(simdjson::dom::object object, std::span<const std::string_view> names,
            std::string_view prefix = "");

    /// `index` into the given names.
    bool Has(std::size_t index) const { return (present_ >> index & 1) != 0; }

    element At(std::size_t index) const { return values_[index]; }
    /// The result of read(element) for a required member; its errors get the member's name.
    template <typename Read>
    auto Get(std::size_t index, Read read) const {
        try {
            if (!Has(index)) throw BadValue("is missing");
            return read(values_[index]);
        } catch (const BadValue& error) {
            throw BadValue(std::string(prefix_).append(names_[index]), error.what());
        }
    }
    std::optional<simdjson::dom::object> Object(std::size_t index) const {
        return Has(index) ? std::optional(Get(index, ObjectOf)) : std::nullopt;
    }
    std::string_view Text(std::size_t index) const { return Has(index) ? Get(index, TextOf) : ""; }
    bool Flag(std::size_t index) const { return Has(index) && Get(index, FlagOf); }
    double Number(std::size_t index, double otherwise = 0) const {
        return Has(index) ? Get(index, NumberOf) : otherwise;
    }
    template <typename Integer>
    Integer WholeNumber(std::size_t index, Integer otherwise = 0) const {
        using Limits = std::numeric_limits<Integer>;
        if (!Has(index)) return otherwise;
        return Get(index, [](element value) {
            return static_cast<Integer>(WholeNumberOf(value, Limits::min(), Limits::max()));
        });
    }

private:
    std::span<const std::string_view> names_;
    std::string_view prefix_;
    std::array<element, Most> values_;
    std::uint32_t present_ = 0;
};

}  // namespace vexlator::vdfjson
