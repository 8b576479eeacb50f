// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/DescribeSource.h"

#include "config/OutsideProgram.h"
#include "drawing/DrawingFile.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/Conversions.h"
#include "startup/go/SourceKinds.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Programs.h"
#include "util/Text.h"

#include <algorithm>
#include <exception>
#include <set>

namespace vexlator::startup {

namespace {

constexpr std::size_t mostHeader = std::size_t{1} << 16;

/// The beginning of a file, "" when there is none.
std::string HeaderOf(std::string_view path) {
    auto file = util::OpenFile(path);
    return file ? std::string(file->Text().substr(0, mostHeader)) : "";
}

/// What stands between the quotes behind a word.
std::string QuotedBehind(std::string_view text, std::string_view word) {
    std::size_t place = text.find(word);
    std::size_t begin = place == std::string_view::npos ? place : text.find_first_of("\"'", place);
    if (begin == std::string_view::npos) return "";
    std::size_t end = text.find(text[begin], begin + 1);
    return end == std::string_view::npos ? "" : std::string(text.substr(begin + 1, end - begin - 1));
}

bool IsImage(const SourceKind& kind) {
    return kind.code == "JPG" || kind.code == "BMP";
}

bool IsGoSource(std::string_view path) {
    return KindOf(path).treatment != Treatment::Nothing;
}

bool HasWorldFile(std::string_view image) {
    for (const char* extension : {"JGW", "JPGW", "BPW", "BMPW", "WLD"})
        if (platform::FileExists(util::ChangeExtension(image, extension))) return true;
    return false;
}

/// Looks at one source.
class Look {
public:
    Look(const config::Run& run, std::string_view path) : run_(run), path_(path) {}

    SourceDescription Describe() {
        const SourceKind& kind = KindOf(path_);
        seen_.kind = kind.words;
        seen_.bytes = platform::SizeOfFile(path_);
        if (kind.treatment == Treatment::Nothing)
            Problem(What::Unconvertible);
        else if (!platform::FileExists(path_))
            Problem(What::Gone);
        else if (seen_.bytes == 0)
            Problem(What::Empty);
        else
            LookAt(kind);
        return std::move(seen_);
    }

private:
    using What = SourceProblem::What;

    void Problem(What what, std::string name = {}) { seen_.problems.push_back({what, std::move(name)}); }

    std::string Companion(std::string_view extension) const {
        return util::ChangeExtension(path_, extension);
    }

    void RequireCompanion(std::string_view extension) {
        if (util::FileSize(Companion(extension)) == 0)
            Problem(What::CompanionMissing, platform::NativePath(util::FileNameOf(Companion(extension))));
    }

    void LookAt(const SourceKind& kind) {
        if (kind.code == "SHP") return LookAtShapefile();
        if (kind.code == "MIF") return LookAtMif();
        if (kind.code == "VDF") return LookAtDrawing();
        if (kind.code == "GML") seen_.system = QuotedBehind(HeaderOf(path_), "srsName=");
        if (kind.code == "PDF") return LookAtMapSheet();
        if (IsImage(kind)) return LookAtImage();
        if (kind.words == "CAD drawing") return RequireConverter();
        if (kind.treatment == Treatment::ByDrawing && !AllConversions().FindImport(kind.code))
            Problem(What::NoImport, std::string(kind.code));
        if (kind.treatment == Treatment::Images || kind.treatment == Treatment::Topography) RequireBuilder();
    }

    void LookAtShapefile() {
        constexpr std::uint64_t headerSize = 100, recordSize = 8;
        std::uint64_t index = util::FileSize(Companion("SHX"));
        if (index >= headerSize) seen_.features = (index - headerSize) / recordSize;
        RequireCompanion("SHX");
        RequireCompanion("DBF");
        seen_.system = QuotedBehind(HeaderOf(Companion("PRJ")), "[");
        if (!HeaderOf(path_).starts_with(std::string_view("\0\0\x27\x0a", 4))) Problem(What::NoShapefile);
    }

    void LookAtMif() {
        RequireCompanion("MID");
        std::string header = HeaderOf(path_);
        std::size_t line = util::InStrNoCase(header, "CoordSys");
        // Found places count from 1; 0 means that there is none.
        if (line == 0) return;
        std::string_view system =
            std::string_view(header).substr(line - 1 + std::string_view("CoordSys").size());
        seen_.system = util::Trim(system.substr(0, system.find_first_of("\r\n")));
    }

    void LookAtDrawing() {
        try {
            seen_.features = drawing::DrawingFile(path_).EntityCount();
        } catch (const std::exception& error) {
            Problem(What::Unreadable, error.what());
        }
    }

    void LookAtMapSheet() {
        if (platform::FileExists(Companion("XML"))) return;
        std::vector<std::string> files = platform::ListFiles(util::FolderOf(path_));
        auto count = std::ranges::count_if(
            files, [](const std::string& file) { return util::MatchesPattern(file, "*.XML"); });
        if (count != 1) Problem(What::NoMapSheetXml);
    }

    void LookAtImage() {
        RequireBuilder();
        if (!HasWorldFile(path_)) Problem(What::NoWorldFile);
    }

    void RequireConverter() {
        bool isThere = util::FileSize(util::VectorDrawConverterPath(run_.Settings().ProgramFolder)) > 0 ||
                       !config::FindSuiteProgram(run_, "vdconv.exe").empty();
        if (!isThere) Problem(What::NoConverter);
    }

    void RequireBuilder() {
        if (config::FindSuiteProgram(run_, "BackgroundBuilder.exe").empty())
            Problem(What::NoBuilder, platform::NativePath(run_.Settings().ProgramFolder));
    }

    const config::Run& run_;
    std::string path_;
    SourceDescription seen_;
};

}  // namespace

SourceDescription DescribeSource(const config::Run& run, std::string_view path) {
    return Look(run, path).Describe();
}

std::vector<std::string> GoSourcesAmong(std::vector<std::string> files) {
    std::set<std::string> jobFolders;
    for (const std::string& file : files)
        if (KindOf(file).code == "JOB") jobFolders.insert(util::FolderOf(file));
    auto isOfJob = [&](std::string folder) {
        while (!folder.empty() && !jobFolders.contains(folder)) {
            std::string above = util::FolderOf(folder);
            folder = above == folder ? "" : above;
        }
        return !folder.empty();
    };
    std::erase_if(files, [&](const std::string& file) {
        return !IsGoSource(file) || (!jobFolders.empty() && IsImage(KindOf(file)) &&
                                     isOfJob(util::FolderOf(file)) && !HasWorldFile(file));
    });
    return files;
}

}  // namespace vexlator::startup
