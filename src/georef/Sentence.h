// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::georef {

/// What people are told, in English. It is kept in parts, which windows translate one by one.
class Sentence {
public:
    struct Part {
        const char* text;  ///< with %1, %2 ... in the place of the values
        std::vector<std::string> values;
    };

    bool IsEmpty() const { return parts_.empty(); }
    const std::vector<Part>& Parts() const { return parts_; }
    std::string English() const;

    /// The same with these values in its last part.
    Sentence With(std::vector<std::string> values) &&;
    Sentence& operator+=(const Sentence& more);
    friend Sentence operator+(Sentence first, const Sentence& second) { return first += second; }

private:
    friend Sentence Plainly(const char* text);

    std::vector<Part> parts_;
};

/// A sentence of one part, which is the same in every language. `text` lives as long as the program.
Sentence Plainly(const char* text);
/// A sentence of one part. `context` is always "vexlator": scripts/translate finds by it what is to be
/// translated.
Sentence InWords(const char* context, const char* text);

/// `text` with the values in their places.
std::string Filled(std::string_view text, const std::vector<std::string>& values);

/// What somebody typed, with quotation marks and not too long.
std::string Quote(std::string_view typed);

}  // namespace vexlator::georef
