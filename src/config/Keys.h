// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The keys of gv.ini. Each is declared once, in the folder of the code that reads it, beside the struct of
/// settings that it fills. The gv.ini of a new installation, the findings of --check and the page of all
/// settings come from the declarations.
namespace vexlator::config {

struct Key {
    enum class Type {
        Flag,    ///< on when its value is exactly 1
        Switch,  ///< on unless its value is exactly 0
        Text,
        Number,  ///< whole; kept within its range
        Folder,  ///< its path
        File     ///< its path; a missing file counts like a missing key
    };
    std::string_view section;
    std::string_view name;  ///< "": the section's keys can have any name
    std::string_view meaning;
    std::string_view fallback = "";  ///< in words: what applies if the key is missing or empty
    std::string_view initial =
        "";  ///< its value in a new installation; @FOLDER@ stands for the installation's folder
    Type type = Type::Text;
    std::int64_t least = 0, most = 0;  ///< range of a number

    /// For people, as in "Flag: positions are left out. Default: off."
    std::string Explanation() const;
    /// The fault of a value, and the value that is used instead; "" for a good value.
    std::string Problem(std::string_view value) const;
};

/// A key, and the member of a settings struct that gets its value.
template <typename Settings>
struct KeyOf : Key {
    using Member = std::variant<bool Settings::*, std::string Settings::*, int Settings::*>;
    Member member;
};

/// Declares the keys of a struct. A key that can have any name is declared as a plain Key.
template <typename Settings>
struct Keys {
    using Member = typename KeyOf<Settings>::Member;
    static constexpr KeyOf<Settings> Flag(std::string_view section, std::string_view name, Member member,
                                          std::string_view meaning, bool initial = false) {
        return {{section, name, meaning, "off", initial ? "1" : "0", Key::Type::Flag}, member};
    }
    static constexpr KeyOf<Settings> Switch(std::string_view section, std::string_view name, Member member,
                                            std::string_view meaning) {
        return {{section, name, meaning, "on", "1", Key::Type::Switch}, member};
    }
    static constexpr KeyOf<Settings> Text(std::string_view section, std::string_view name, Member member,
                                          std::string_view meaning, std::string_view fallback,
                                          std::string_view initial = "") {
        return {{section, name, meaning, fallback, initial, Key::Type::Text}, member};
    }
    static constexpr KeyOf<Settings> Folder(std::string_view section, std::string_view name, Member member,
                                            std::string_view meaning, std::string_view fallback,
                                            std::string_view initial = "") {
        return {{section, name, meaning, fallback, initial, Key::Type::Folder}, member};
    }
    static constexpr KeyOf<Settings> File(std::string_view section, std::string_view name, Member member,
                                          std::string_view meaning, std::string_view fallback) {
        return {{section, name, meaning, fallback, "", Key::Type::File}, member};
    }
    static constexpr KeyOf<Settings> Number(std::string_view section, std::string_view name, Member member,
                                            std::string_view meaning, std::string_view fallback,
                                            std::int64_t least, std::int64_t most) {
        return {{section, name, meaning, fallback, "", Key::Type::Number, least, most}, member};
    }
};

bool IsOn(const Key& key, std::string_view value);
int NumberOf(const Key& key, std::string_view value);

/// Reads a settings struct by its keys. If a key is missing or empty, a member that is not a flag keeps its
/// value in `settings`.
template <typename Settings>
Settings ReadKeys(const Installation& installation, std::span<const KeyOf<Settings>> keys,
                  Settings settings = {}) {
    const IniText ini = installation.Ini();
    for (const KeyOf<Settings>& key : keys) {
        std::string_view value = ini.Value(key.section, key.name);
        if (auto flag = std::get_if<bool Settings::*>(&key.member))
            settings.*(*flag) = IsOn(key, value);
        else if (value.empty())
            continue;
        else if (auto number = std::get_if<int Settings::*>(&key.member))
            settings.*(*number) = NumberOf(key, value);
        else
            settings.*std::get<std::string Settings::*>(key.member) = value;
    }
    return settings;
}

using KeyList = std::vector<Key>;

template <typename Settings>
KeyList ListOf(std::span<const KeyOf<Settings>> keys) {
    return {keys.begin(), keys.end()};
}

}  // namespace vexlator::config
