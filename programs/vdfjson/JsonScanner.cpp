// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/JsonScanner.h"

#include "platform/Errors.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace vexlator::vdfjson {

namespace {

enum class Role : unsigned char { None, Quote, Opening, Closing };

constexpr std::array<Role, 256> MakeRoles() {
    std::array<Role, 256> roles{};
    roles['"'] = Role::Quote;
    roles['{'] = roles['['] = Role::Opening;
    roles['}'] = roles[']'] = Role::Closing;
    return roles;
}
constexpr std::array<Role, 256> roles = MakeRoles();

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view wordEnds = " \t\r\n,:\"{}[]";

/// The first of the two characters, or the end. Most of a document consists of short strings. Reading eight
/// bytes at a time is twice as fast as reading one.
const char* FindQuoteOrBackslash(const char* at, const char* end) {
    constexpr std::uint64_t ones = 0x0101010101010101U, highs = 0x8080808080808080U;
    auto zeroBytes = [](std::uint64_t word) {
        return (word - ones) & ~word & highs;
    };  // the lowest one is exact
    if constexpr (std::endian::native == std::endian::little) {
        for (; end - at >= 8; at += 8) {
            std::uint64_t word;
            std::memcpy(&word, at, 8);
            std::uint64_t found = zeroBytes(word ^ ones * '"') | zeroBytes(word ^ ones * '\\');
            if (found != 0) return at + std::countr_zero(found) / 8;
        }
    }
    while (at != end && *at != '"' && *at != '\\') ++at;
    return at;
}

}  // namespace

void JsonScanner::Fail(const char* reason) const {
    throw platform::ReadError("", platform::ReadError::AtByte(position_), reason);
}

void JsonScanner::SkipBlanks() {
    while (position_ < text_.size() && blanks.find(text_[position_]) != blanks.npos) ++position_;
}

bool JsonScanner::Take(char c) {
    SkipBlanks();
    if (position_ == text_.size() || text_[position_] != c) return false;
    ++position_;
    return true;
}

void JsonScanner::Expect(char c, const char* reason) {
    if (!Take(c)) Fail(reason);
}

bool JsonScanner::More(char closing, bool isFirst) {
    if (Take(closing)) return false;
    if (!isFirst) Expect(',', "a comma or the closing bracket is missing");
    return true;
}

void JsonScanner::ExpectEnd() {
    SkipBlanks();
    if (position_ != text_.size()) Fail("something follows the end of the JSON text");
}

std::string_view JsonScanner::Value() {
    SkipBlanks();
    std::size_t begin = position_;
    if (begin == text_.size()) Fail("the text ends where a value is expected");
    switch (roles[static_cast<unsigned char>(text_[begin])]) {
        case Role::Quote:
            SkipString();
            break;
        case Role::Opening:
            SkipNested();
            break;
        case Role::Closing:
        case Role::None:
            SkipWord();
            break;
    }
    return text_.substr(begin, position_ - begin);
}

std::string_view JsonScanner::Name() {
    SkipBlanks();
    if (position_ == text_.size() || text_[position_] != '"')
        Fail("a member's name in double quotes is expected here");
    return Value();
}

void JsonScanner::SkipString() {
    const char* end = text_.data() + text_.size();
    const char* at = FindQuoteOrBackslash(text_.data() + position_ + 1, end);
    while (at != end && *at == '\\') at = FindQuoteOrBackslash(std::min(at + 2, end), end);
    if (at == end) Fail("the text ends inside the string that begins here");
    position_ = static_cast<std::size_t>(at + 1 - text_.data());
}

void JsonScanner::SkipNested() {
    std::size_t begin = position_;
    std::size_t depth = 0;
    while (position_ < text_.size()) {
        Role role = roles[static_cast<unsigned char>(text_[position_])];
        if (role == Role::Quote) {
            SkipString();
            continue;
        }
        ++position_;
        if (role == Role::Opening) ++depth;
        if (role == Role::Closing && --depth == 0) return;
    }
    position_ = begin;
    Fail("the text ends inside the value that begins here");
}

void JsonScanner::SkipWord() {
    std::size_t end = text_.find_first_of(wordEnds, position_);
    if (end == text_.npos) end = text_.size();
    if (end == position_) Fail("a value is missing");
    position_ = end;
}

}  // namespace vexlator::vdfjson
