// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace vexlator::vdfjson {

/// Walks over the outer structure of a JSON text and cuts it into values, without looking into them: it minds
/// strings and brackets only. So a document of any size is read value by value, each by a parser that needs
/// memory for that value alone; the parser is also what finds mistakes inside a value.
///
/// Every member throws platform::ReadError (byte and reason, no file) where the structure is broken.
class JsonScanner {
public:
    explicit JsonScanner(std::string_view text, std::size_t position = 0)
        : text_(text), position_(position) {}

    /// Walks over an object: calls visit(std::string_view quotedName) for every member, which has to step
    /// over the member's value with one of these functions.
    template <typename Visit>
    void Members(Visit visit) {
        Expect('{', "a JSON object is expected here");
        for (bool isFirst = true; More('}', isFirst); isFirst = false) {
            std::string_view name = Name();
            Expect(':', "a colon is missing after a member's name");
            visit(name);
        }
    }

    /// Walks over an array: calls visit() for every element, which has to step over it with one of these
    /// functions.
    template <typename Visit>
    void Elements(Visit visit) {
        Expect('[', "a JSON array is expected here");
        for (bool isFirst = true; More(']', isFirst); isFirst = false) visit();
    }

    /// Steps over any value and returns its text.
    std::string_view Value();

    /// Where the next value, or whatever stands there, begins.
    std::size_t Position() {
        SkipBlanks();
        return position_;
    }

    /// Nothing but blanks may follow.
    void ExpectEnd();

private:
    [[noreturn]] void Fail(const char* reason) const;
    void SkipBlanks();
    bool Take(char c);
    void Expect(char c, const char* reason);
    /// Steps to the next member or element; false behind the closing bracket.
    bool More(char closing, bool isFirst);
    std::string_view Name();
    void SkipString();
    void SkipNested();
    void SkipWord();

    std::string_view text_;
    std::size_t position_;
};

}  // namespace vexlator::vdfjson
