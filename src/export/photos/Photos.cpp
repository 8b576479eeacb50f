// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/photos/Photos.h"

#include "export/photos/PhotoFolders.h"
#include "formats/QuotedText.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <unordered_map>

namespace vexlator::exporter {

namespace {

/// Four bytes as a number, letters in lower case.
std::uint32_t LowerFour(const char* text) {
    std::uint32_t word;
    std::memcpy(&word, text, sizeof word);
    return word | 0x20202020U;
}

struct PhotoSettings {
    std::string source, target, falseTarget;
    bool copy = true, fullPath = false, list = false;
    // The values in gv.ini.
    bool fixedExport = false, dontCopy = false;
    std::string fixedTarget, fixedSource;
};

using Keys = config::Keys<PhotoSettings>;

constexpr config::KeyOf<PhotoSettings> keys[] = {
    Keys::Flag("PHOTO", "FixedExport", &PhotoSettings::fixedExport,
               "photographs go to FixedExportFolder instead of the folder of the export"),
    Keys::Folder("PHOTO", "FixedExportFolder", &PhotoSettings::fixedTarget,
                 "folder of exported photographs. Used with FixedExport on", "none"),
    Keys::Flag("PHOTO", "FullPath", &PhotoSettings::fullPath,
               "features hold the full paths of their photographs"),
    Keys::Flag("PHOTO", "DontCopy", &PhotoSettings::dontCopy, "photographs are not copied"),
    Keys::Folder("PHOTO", "FIXEDSOURCE", &PhotoSettings::fixedSource, "source folder of photographs",
                 "the folder of the drawing's job"),
    Keys::Text("PHOTO", "FALSETARGET", &PhotoSettings::falseTarget,
               "folder that features name in place of the real folder of the copied photographs", "none"),
    Keys::Flag("THIRD", "SSE", &PhotoSettings::list, "exports write lists of the copied photographs"),
};

PhotoSettings ReadPhotoSettings(const config::Run& run, std::string_view sourceFolder,
                                std::string_view targetFolder) {
    auto settings = config::ReadKeys<PhotoSettings>(run.Installation(), keys);
    settings.copy = !settings.dontCopy;
    settings.target = targetFolder;
    if (settings.fixedExport && !settings.fixedTarget.empty()) settings.target = settings.fixedTarget;
    if (!settings.copy) settings.target = sourceFolder;
    settings.source = settings.fixedSource.empty() ? std::string(sourceFolder) : settings.fixedSource;
    return settings;
}

std::string CsvField(std::string_view text) {
    if (!formats::NeedsQuotes(text, ',')) return std::string(text);
    std::string quoted;
    formats::AppendQuoted(quoted, text);
    return quoted;
}

PhotoPaths PathsFor(const PhotoSettings& settings) {
    if (!settings.falseTarget.empty()) return {settings.falseTarget, PhotoPaths::Form::AsWritten};
    if (settings.fullPath) return {platform::AbsolutePath(settings.target), PhotoPaths::Form::Native};
    return {};
}

/// Calls `visit(attributes, index)` for the values of an entity that name photographs.
template <typename Visit>
void ForEachPhoto(const drawing::Entity& entity, Visit visit) {
    drawing::Kind kind = entity.kindCode();
    if (kind != drawing::Kind::Insert && kind != drawing::Kind::Point && kind != drawing::Kind::Polyline)
        return;
    std::vector<std::size_t> found;
    drawing::ValueCursor values = entity.xproperties().values();
    for (std::size_t i = 0; !values.AtEnd(); ++i)
        if (NamesPhoto(values.Next())) found.push_back(i);
    // A change of a value ends the iteration, so the visits come after it.
    for (std::size_t index : found) visit(entity.xproperties(), index);
}

/// A line of a list. Readers stop at NUL.
std::string WithoutNul(std::string line) {
    std::ranges::replace(line, '\0', '?');
    return line;
}

/// Collects the photos of one drawing.
class Gathering {
public:
    Gathering(config::Run& run, PhotoSettings settings)
        : run_(run),
          settings_(std::move(settings)),
          source_(settings_.source),
          target_(settings_.target),
          fullTarget_(platform::AbsolutePath(settings_.target), PhotoPaths::Form::Native),
          paths_(PathsFor(settings_)) {
        if (platform::RealPath(settings_.target) == source_.Root()) settings_.copy = false;
    }

    void Visit(const drawing::Entity& entity) {
        ForEachPhoto(entity, [&](const drawing::XProperties& properties, std::size_t index) {
            Gather(properties, index);
        });
    }

    const PhotoPaths& Paths() const { return paths_; }
    const std::string& List() const { return list_; }

private:
    void Gather(const drawing::XProperties& properties, std::size_t index) {
        std::string value(properties.item(index).value());
        std::string_view first = properties.item(0).value();
        if (!IsCopied(value))
            run_.MissingPhotos() += WithoutNul(value + " missing from " + std::string(first) + "\r\n");
        else if (settings_.list)
            list_ += WithoutNul(CsvField(first) + "," + CsvField(fullTarget_.PathOf(value)) + "\r\n");
        if (!paths_.AreChanged()) return;
        std::string path = paths_.PathOf(value);
        properties.item(index).setValue(path);
        if (!settings_.falseTarget.empty()) run_.DebugMessage(path);
    }

    /// Whether the photo is now in the target folder. Each photo is searched for once.
    bool IsCopied(std::string_view value) {
        auto [known, isNew] = copied_.try_emplace(platform::LowerAscii(WithBackslashes(value)), false);
        if (isNew && settings_.copy) known->second = Copy(value);
        return known->second;
    }

    bool Copy(std::string_view value) {
        std::vector<std::string_view> parts = PhotoPathParts(value);
        std::string photo = source_.Find(parts);
        if (photo.empty() || util::FileSize(photo) == 0) return false;
        try {
            return target_.Copy(photo, parts);
        } catch (const platform::ReadError&) {
            return false;
        }
    }

    config::Run& run_;
    PhotoSettings settings_;
    PhotoSource source_;
    PhotoTarget target_;
    PhotoPaths fullTarget_;  ///< in the form for the list
    PhotoPaths paths_;       ///< in the form for features
    std::unordered_map<std::string, bool> copied_;
    std::string list_;
};

/// The list is for programs that expect Windows-1252. It is UTF-8 only for characters outside Windows-1252.
void WritePhotoList(std::string_view path, const std::string& list) {
    DropLink(path);
    platform::ReplaceFile(path, platform::FitsWindows1252(list) ? platform::Windows1252FromUtf8(list) : list);
}

/// The list of missing photographs, which can be beside it, keeps its name.
std::string ListFileName(std::string_view name, std::string_view extension) {
    bool isTaken = platform::SameNoCase(name, "MissingPhotos");
    return util::SafeFileName(std::string(name) + (isTaken ? "_." : ".") + std::string(extension));
}

}  // namespace

/// Called for every value of a drawing. Most values have no full stop, and are searched once.
bool NamesPhoto(std::string_view value) {
    static const std::uint32_t jpg = LowerFour(".jpg"), bmp = LowerFour(".bmp");
    const char* position = value.data();
    const char* end = position + value.size();
    while (end - position >= 4) {
        position = static_cast<const char*>(
            std::memchr(position, '.', static_cast<std::size_t>(end - position) - 3));
        if (!position) return false;
        std::uint32_t word = LowerFour(position);
        if (word == jpg || word == bmp) return true;
        ++position;
    }
    return false;
}

void ReadJobSource(config::Run& run, const std::vector<std::pair<std::string, std::string>>& properties) {
    auto source = std::find_if(properties.begin(), properties.end(),
                               [](const auto& property) { return property.first == "Source"; });
    if (source == properties.end()) return;
    run.Job() = {source->second, PathBelow(source->second, run.Settings().WorkFlowDirectory)};
}

std::string PhotoPaths::PathOf(std::string_view value) const {
    std::string path = util::JoinPath(folder_, value);
    return form_ == Form::Native ? platform::NativePath(path) : path;
}

void PhotoPaths::ApplyTo(drawing::Drawing& drawing) const {
    if (!AreChanged()) return;
    drawing.forEach([&](const drawing::Entity& entity) {
        ForEachPhoto(entity, [&](const drawing::XProperties& properties, std::size_t index) {
            drawing::XProperty property = properties.item(index);
            property.setValue(PathOf(property.value()));
        });
    });
}

PhotoPaths GatherPhotos(config::Run& run, drawing::DrawingFile& drawing, std::string_view sourceFolder,
                        std::string_view listName, std::string_view targetFolder,
                        std::string_view listExtension) {
    PhotoSettings settings = ReadPhotoSettings(run, sourceFolder, targetFolder);
    if (settings.source.empty()) return {};
    drawing.ForEachChunk([](const drawing::Drawing&) {});
    util::MakeFolder(targetFolder);
    run.MissingPhotos().clear();
    Gathering gathering(run, settings);
    drawing.ForEachChunk([&](drawing::Drawing& chunk) {
        chunk.forEach([&](const drawing::Entity& entity) { gathering.Visit(entity); });
    });
    if (settings.list)
        WritePhotoList(util::JoinPath(targetFolder, ListFileName(listName, listExtension)), gathering.List());
    return gathering.Paths();
}

config::KeyList PhotoKeys() {
    return config::ListOf<PhotoSettings>(keys);
}

}  // namespace vexlator::exporter
