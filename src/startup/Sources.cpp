// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Sources.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <set>

namespace vexlator::startup {

namespace {

using Paths = std::vector<std::string>;

class Finder {
public:
    explicit Finder(const Conversions& conversions) : conversions_(conversions) {}

    void AddItem(std::string_view item) {
        std::string_view name = util::Trim(item);
        if (!Exists(name) && IsInSingleQuotes(name)) name = name.substr(1, name.size() - 2);
        if (Exists(item))
            Add(std::string(item));
        else if (Exists(name) || !(AddGuessed(Matches(name)) || AddGuessed(Parts(name))))
            Add(std::string(name));
    }
    SourceList TakeList() { return std::move(list_); }

private:
    /// Names without a folder lie beside the first source.
    static std::string Located(std::string_view name, std::string_view first) {
        bool beside = !first.empty() && util::FileNameOf(name) == name;
        return beside ? util::JoinPath(util::FolderOf(first), name) : platform::AbsolutePath(name);
    }
    std::string First() const { return list_.paths.empty() ? "" : list_.paths.front(); }
    bool Exists(std::string_view name) const { return platform::FileExists(Located(name, First())); }
    void Add(const std::string& name) {
        if (!name.empty()) list_.paths.push_back(list_.paths.empty() ? platform::AbsolutePath(name) : name);
    }

    /// Adds those that can be imported. False when there are none.
    bool AddGuessed(const Paths& names) {
        bool added = false;
        for (const std::string& name : names) {
            if (!CanImport(conversions_, platform::UpperAscii(util::ExtensionOf(name)))) continue;
            added = true;
            // One file may be named in two letter cases: read twice, it would double its features.
            if (known_.insert(platform::FindExisting(Located(name, First()))).second) Add(name);
        }
        list_.guessed |= added;
        return added;
    }

    Paths Matches(std::string_view pattern) const {
        Paths matches;
        std::string folder = util::FolderOf(Located(pattern, First()));
        std::string names = util::FileNameOf(pattern);
        if (names.find_first_of("*?") == std::string::npos) return matches;
        for (const std::string& name : platform::ListFiles(folder))
            if (util::MatchesPattern(name, names)) matches.push_back(util::JoinPath(folder, name));
        return matches;
    }

    /// The files whose names stand in the text; none when something else does, too.
    Paths Parts(std::string_view text) const {
        Paths parts;
        std::string first = First();
        std::size_t begin = 0;
        for (std::size_t end = 0; end < text.size();) {
            end = std::min(text.find_first_of(nameSeparators, end + 1), text.size());
            std::string_view name = text.substr(begin, end - begin);
            name.remove_prefix(std::min(name.find_first_not_of(nameSeparators), name.size()));
            if (name.find('.') == std::string_view::npos || !platform::FileExists(Located(name, first)))
                continue;
            if (first.empty()) first = platform::AbsolutePath(name);
            parts.emplace_back(name);
            begin = end;
        }
        return begin == text.size() ? parts : Paths();
    }

    const Conversions& conversions_;
    SourceList list_;
    std::set<std::string> known_;  ///< files of a guessed list, by their native paths
};

}  // namespace

bool IsInSingleQuotes(std::string_view text) {
    return text.size() > 1 && text.starts_with('\'') && text.ends_with('\'');
}

bool CanImport(const Conversions& conversions, std::string_view code) {
    const ImportRow* row = conversions.FindImport(code == "TXT" ? "CSV" : code);
    return row && row->call;
}

SourceList FindSources(const Conversions& conversions, std::string_view argument) {
    Finder finder(conversions);
    while (!argument.empty()) {
        std::size_t bar = std::min(argument.find('|'), argument.size());
        finder.AddItem(argument.substr(0, bar));
        argument.remove_prefix(std::min(bar + 1, argument.size()));
    }
    return finder.TakeList();
}

}  // namespace vexlator::startup
