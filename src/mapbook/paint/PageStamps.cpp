// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/PageStamps.h"

#include "formats/image/Jpeg.h"
#include "platform/Errors.h"
#include "platform/FileStamp.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <xxhash.h>

namespace vexlator::mapbook {

namespace {

constexpr std::string_view stampBegin = "Vexlator page ";
/// Changes when the program draws the same page otherwise.
constexpr std::string_view drawingStyle = "1";

std::string HashText(std::string_view bytes) {
    XXH128_hash_t hash = XXH3_128bits(bytes.data(), bytes.size());
    std::array<char, 33> text{};
    std::snprintf(text.data(), text.size(), "%016llx%016llx", static_cast<unsigned long long>(hash.high64),
                  static_cast<unsigned long long>(hash.low64));
    return text.data();
}

/// Name, size and time of a file.
std::string FileText(const std::string& path) {
    auto stamp = platform::StampOf(platform::FindExisting(path));
    if (!stamp) return path + "\n";
    return path + " " + std::to_string(stamp->size) + " " +
           std::to_string(stamp->time.time_since_epoch().count()) + "\n";
}

std::optional<std::string> CommentOf(const platform::MappedFile& image) {
    try {
        return formats::ReadJpegInfo(image.Text()).comment;
    } catch (const platform::ReadError&) {
        return std::nullopt;
    }
}

}  // namespace

PageStamps::PageStamps(const BookPlan& plan) {
    BookPlan same = plan;
    same.drawing = same.folder = "";
    same.drawsPdf = same.listsPages = false;
    source_ = BookPlanText(same).append(drawingStyle) + "\n";
    source_ += HashText(platform::MappedFile(plan.drawing).Text()) + "\n";
    for (const std::string& file : {plan.package, plan.logos.first, plan.logos.second})
        if (!file.empty()) source_ += FileText(file);
    for (const std::string& symbol : platform::ListFiles(plan.symbolsFolder))
        source_ += FileText(util::JoinPath(plan.symbolsFolder, symbol));
}

std::string PageStamps::Of(std::string_view page, const std::string& background) const {
    std::string map = background.empty() ? "" : HashText(platform::MappedFile(background).Text());
    return std::string(stampBegin) + HashText(source_ + map + std::string(page));
}

bool HasStamp(const std::string& image, std::string_view stamp) {
    if (!platform::FileExists(image)) return false;
    platform::MappedFile file(image);
    if (CommentOf(file) != stamp) return false;
    try {
        formats::ProveJpeg(file.Text());
        return true;
    } catch (const platform::ReadError&) {
        return false;
    }
}

bool IsPageImage(const std::string& image) {
    auto comment = CommentOf(platform::MappedFile(image));
    return comment && comment->starts_with(stampBegin);
}

}  // namespace vexlator::mapbook
