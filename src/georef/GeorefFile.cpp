// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Ini.h"
#include "georef/PointEntries.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::georef {

namespace {

constexpr std::string_view mainSection = "GEOREF";
/// Section of the points left out of the fit, under their numbers. So helper programs may use every key of
/// the main section.
constexpr std::string_view asideSection = "GEOREF_ASIDE";
constexpr std::string_view on = "1";

PointEntry EntryOf(const config::IniText& ini, std::string_view section, std::size_t number) {
    std::string n = std::to_string(number);
    PointEntry entry;
    entry.pixel = ini.Value(section, n + "P");
    entry.ground = ini.Value(section, n + "G");
    entry.isLeftOut = ini.Value(section, n + "OUT") == on;
    return entry;
}

bool IsEmpty(const PointEntry& entry) {
    return entry.pixel.empty() && entry.ground.empty();
}

std::size_t PointCount(std::string_view number) {
    return static_cast<std::size_t>(std::clamp<std::int64_t>(util::IntegerOf(number), 0, mostPoints));
}

/// The largest number of a key. Others may have left numbers out, and points behind them are kept.
std::size_t LastNumber(const config::IniText& ini) {
    std::size_t last = 0;
    for (const config::IniEntry& entry : ini.Entries())
        if (platform::SameNoCase(entry.section, mainSection) && !entry.key.empty())
            last = std::max(last, PointCount(entry.key.substr(0, entry.key.size() - 1)));
    return last;
}

/// The points of the main section fill the free numbers of the section above.
PointEntries PointsOf(const config::IniText& ini) {
    PointEntries entries;
    std::size_t next = 1, count = std::max(PointCount(ini.Value(asideSection, "COUNT")), LastNumber(ini));
    while (entries.size() < mostPoints) {
        PointEntry entry = EntryOf(ini, asideSection, entries.size() + 1);
        bool isAside = entries.size() < count && !IsEmpty(entry);
        if (!isAside) entry = EntryOf(ini, mainSection, next++);
        if (IsEmpty(entry) && entries.size() >= count) break;
        entries.push_back(std::move(entry));
    }
    while (!entries.empty() && IsEmpty(entries.back())) entries.pop_back();
    return entries;
}

int Pixels(double value) {
    constexpr double most = 1e9;
    return value >= 1 && value <= most ? static_cast<int>(value) : 0;
}

/// The text without the sections that are rewritten.
std::string OtherSections(const std::string& text) {
    std::string kept;
    bool isOurs = false;
    std::size_t begin = 0;
    for (util::LineReader lines(text); !lines.AtEnd(); begin = lines.Position()) {
        std::string_view line = util::Trim(lines.ReadTextLine());
        if (line.starts_with('[')) {
            std::string_view name = util::Trim(line.substr(1, line.find(']') - 1));
            isOurs = platform::SameNoCase(name, mainSection) || platform::SameNoCase(name, asideSection);
        }
        if (!isOurs) kept.append(text, begin, lines.Position() - begin);
    }
    if (!kept.empty() && kept.back() != '\n' && kept.back() != '\r') kept += "\r\n";
    return kept;
}

void AppendEntry(std::string& text, std::size_t number, const PointEntry& entry) {
    config::AppendIniValue(text, std::to_string(number) + "G", entry.ground);
    config::AppendIniValue(text, std::to_string(number) + "P", entry.pixel);
}

/// The first `complete` points are those for the fit, as far as they are not left out; the others lie aside.
void AppendMainSection(std::string& text, const GeorefFile& file, std::size_t complete) {
    config::AppendIniSection(text, mainSection);
    std::size_t number = 0;
    for (std::size_t i = 0; i < complete; ++i)
        if (!file.points[i].isLeftOut) AppendEntry(text, ++number, file.points[i]);
    if (file.width > 0 && file.height > 0)
        config::AppendIniValue(text, "SIZE", std::to_string(file.width) + "," + std::to_string(file.height));
    config::AppendIniValue(text, "ROTATE", file.rotate ? on : "0");
    if (file.order == Fit::Order::Second) config::AppendIniValue(text, "ORDER", "2");
}

void AppendAsideSection(std::string& text, const PointEntries& points, std::size_t complete) {
    bool isNeeded = complete < points.size() || std::any_of(points.begin(), points.end(),
                                                            [](const PointEntry& p) { return p.isLeftOut; });
    if (!isNeeded) return;
    config::AppendIniSection(text, asideSection);
    config::AppendIniValue(text, "COUNT", std::to_string(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i < complete && !points[i].isLeftOut) continue;
        AppendEntry(text, i + 1, points[i]);
        if (points[i].isLeftOut) config::AppendIniValue(text, std::to_string(i + 1) + "OUT", on);
    }
}

void WriteFile(std::string_view path, const GeorefFile& file, std::size_t complete) {
    platform::FileLock lock(path);
    std::string text = platform::FileExists(path) ? OtherSections(platform::ReadWholeFile(path)) : "";
    AppendMainSection(text, file, complete);
    AppendAsideSection(text, file.points, complete);
    platform::ReplaceFile(path, text);
}

}  // namespace

std::string GeorefFilePath(std::string_view imagePath) {
    std::string folder = util::FolderOf(imagePath), name = util::BaseNameOf(imagePath) + ".INI";
    return folder.empty() ? name : util::JoinPath(folder, name);
}

GeorefFile ParseGeorefFile(std::string_view text) {
    config::IniText ini(text);
    GeorefFile file;
    file.points = PointsOf(ini);
    std::string_view size = ini.Value(mainSection, "SIZE");
    file.width = Pixels(util::GetCommaNumber(0, size));
    file.height = Pixels(util::GetCommaNumber(1, size));
    file.rotate = ini.Value(mainSection, "ROTATE") == on;
    if (ini.Value(mainSection, "ORDER") == "2") file.order = Fit::Order::Second;
    return file;
}

GeorefFile ReadGeorefFile(std::string_view path) {
    if (platform::FindExisting(path).empty()) return {};
    if (platform::SizeOfFile(path) > largestPointsFile)
        throw platform::ReadError(platform::NativePath(path), "", "too large for a file of control points");
    return ParseGeorefFile(platform::ReadWholeFile(path));
}

void WriteGeorefFile(std::string_view path, const GeorefFile& file) {
    WriteFile(path, file, CountComplete(file.points));
}

void WriteGeorefFileForCarving(std::string_view path, const GeorefFile& file) {
    WriteFile(path, file, 0);
}

}  // namespace vexlator::georef
