// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace vexlator::vdfjson {

/// Splits the outer structure of a JSON text into values without parsing them; it looks at strings and
/// brackets only. So a document of any size is read value by value, each by a parser that needs memory for
/// one value. The parser also finds errors inside a value.
///
/// Every member throws platform::ReadError (byte and reason, no file) if the structure is broken.
class JsonScanner {
public:
    explicit JsonScanner(std::string_view text, std::size_t position = 0)
        : text_(text), position_(position) {}

    /// Reads an object: calls visit(std::string_view quotedName) for every member. It has to skip the
    /// member's value with one of these functions.
    template <typename Visit>
    void Members(Visit visit) {
        Expect('{', "a JSON object is expected here");
        for (bool isFirst = true; More('}', isFirst); isFirst = false) {
            std::string_view name = Name();
            Expect(':', "a colon is missing after a member's name");
            visit(name);
        }
    }

    /// Reads an array: calls visit() for every element. It has to skip the element with one of these
    /// functions.
    template <typename Visit>
    void Elements(Visit visit) {
        Expect('[', "a JSON array is expected here");
        for (bool isFirst = true; More(']', isFirst); isFirst = false) visit();
    }

    /// Skips any value and returns its text.
    std::string_view Value();

    /// Start of the next value or other text.
    std::size_t Position() {
        SkipBlanks();
        return position_;
    }

    /// Only blanks may follow.
    void ExpectEnd();

private:
    [[noreturn]] void Fail(const char* reason) const;
    void SkipBlanks();
    bool Take(char c);
    void Expect(char c, const char* reason);
    /// Moves to the next member or element; false after the closing bracket.
    bool More(char closing, bool isFirst);
    std::string_view Name();
    void SkipString();
    void SkipNested();
    void SkipWord();

    std::string_view text_;
    std::size_t position_;
};

}  // namespace vexlator::vdfjson
