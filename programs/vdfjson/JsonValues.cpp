// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/JsonValues.h"

namespace vexlator::vdfjson {

namespace {

std::string Reason(simdjson::error_code error) {
    switch (error) {
        case simdjson::CAPACITY:
            return "a single value is larger than 4 GB";
        case simdjson::MEMALLOC:
            return "not enough memory";
        case simdjson::DEPTH_ERROR:
            return "arrays and objects are nested too deep";
        case simdjson::STRING_ERROR:
            return "a string holds a wrong escape";
        case simdjson::NUMBER_ERROR:
            return "a number is malformed or out of range";
        case simdjson::UTF8_ERROR:
            return "the text is not UTF-8";
        case simdjson::UNESCAPED_CHARS:
            return "a string holds a control character";
        case simdjson::T_ATOM_ERROR:
        case simdjson::F_ATOM_ERROR:
        case simdjson::N_ATOM_ERROR:
            return "a word is not true, false or null";
        default:
            return "the JSON is broken: a comma, colon, quote or bracket is missing or too many";
    }
}

template <typename Value>
Value Expect(simdjson::simdjson_result<Value>&& result, const char* reason) {
    Value value;
    if (std::move(result).get(value) != simdjson::SUCCESS) throw BadValue(reason);
    return value;
}

}  // namespace

element JsonParser::Parse(std::string_view text) {
    element value;
    if (auto error = parser_.parse(text.data(), text.size()).get(value)) throw BadValue(Reason(error));
    return value;
}

std::string_view TextOf(element value) {
    return Expect(value.get_string(), "is not a text");
}
double NumberOf(element value) {
    return Expect(value.get_double(), "is not a number");
}
bool FlagOf(element value) {
    return Expect(value.get_bool(), "is neither true nor false");
}
simdjson::dom::array ArrayOf(element value) {
    return Expect(value.get_array(), "is not an array");
}
simdjson::dom::object ObjectOf(element value) {
    return Expect(value.get_object(), "is not an object");
}

std::int64_t WholeNumberOf(element value, std::int64_t least, std::int64_t most) {
    std::int64_t number = 0;
    if (value.get_int64().get(number) != simdjson::SUCCESS || number < least || number > most)
        throw BadValue("is not a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    return number;
}

Members::Members(simdjson::dom::object object, std::span<const std::string_view> names,
                 std::string_view prefix)
    : names_(names), prefix_(prefix) {
    // Objects of one kind have their members in the same order, mostly that of the names. So the search
    // starts after the last found name.
    std::size_t next = 0;
    for (auto [name, value] : object) {
        for (std::size_t tried = 0; tried < names.size(); ++tried) {
            std::size_t index = (next + tried) % names.size();
            if (names[index] != name) continue;
            values_[index] = value;
            std::uint32_t bit = std::uint32_t{1} << index;
            present_ = value.is_null() ? present_ & ~bit : present_ | bit;
            next = index + 1;
            break;
        }
    }
}

}  // namespace vexlator::vdfjson
