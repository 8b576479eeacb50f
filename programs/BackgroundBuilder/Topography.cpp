// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "BackgroundBuilder/Topography.h"

#include "BackgroundBuilder/ScratchDrawing.h"
#include "background/updates/FeatureState.h"
#include "import/gml/GmlEntities.h"
#include "import/gml/GmlFile.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>
#include <vector>

namespace vexlator::backgroundbuilder {

namespace {

using background::FeatureState;
using background::UpdateCounts;
using formats::GmlFeature;

/// A package is drawn by its features' classes when the first one has all of these.
void CompleteClasses(GmlFeature& feature) {
    std::string toid = background::ToidOf(feature);
    if (toid.empty()) return;
    auto require = [&](std::initializer_list<std::string_view> names, const std::string& value) {
        bool isThere = std::ranges::any_of(feature.properties, [&](const formats::GmlProperty& property) {
            return std::ranges::any_of(
                names, [&](std::string_view name) { return platform::SameNoCase(property.name, name); });
        });
        if (!isThere) feature.properties.push_back({std::string(*names.begin()), value});
    };
    require({"TOID"}, toid);
    require({"theme", "themes"}, "");
    require({"make"}, "");
}

class Topography {
public:
    Topography(config::Run& run, const Command& command)
        : run_(run),
          command_(command),
          options_(ReadUpdateOptions(run)),
          statePath_(StatePath()),
          state_(statePath_) {}

    void Build() {
        RequireOwnState();
        if (options_.appliesUpdates)
            RequireSupply();
        else
            state_.Clear();
        for (const std::string& source : SourcesOf(command_)) TakeSource(source);
        ScratchDrawing scratch(run_, command_.target);
        Draw(scratch.Sink());
        for (const std::string& source : taken_) BackUp(source);
        state_.SetPackage(platform::AbsolutePath(command_.target));
        state_.Commit();
        scratch.BuildPackage(command_.target);
    }

private:
    /// A state that is there is kept in step with its package, whatever the settings say.
    std::string StatePath() const {
        std::string path =
            util::JoinPath(options_.backupFolder, util::BaseNameOf(command_.target) + ".sqlite");
        if (!options_.keepsState && platform::SizeOfFile(path) == 0) return "";
        platform::RequireFolder(options_.backupFolder);
        platform::RemoveLeftovers(options_.backupFolder);
        return path;
    }

    void RequireOwnState() const {
        std::string other = state_.Package();
        bool isOther =
            !other.empty() && !platform::SameNoCase(other, platform::AbsolutePath(command_.target));
        if (isOther && platform::FileExists(other))
            throw platform::WriteError(
                platform::NativePath(statePath_),
                "it belongs to " + other + "; name the package otherwise, or choose another [GRP] MMBACKUP");
    }

    /// Updates alone would make a package of a few features.
    void RequireSupply() const {
        if (!state_.HoldsSources() && platform::FileExists(command_.target))
            throw platform::WriteError(
                platform::NativePath(command_.target),
                "nothing is kept that updates could apply to; build it from the whole supply once, with "
                "[GRP] MMMAINTAINCOU=1 and without updates");
    }

    void TakeSource(const std::string& source) {
        platform::MappedFile file(source);
        if (file.Bytes().empty()) throw platform::ReadError(file.Name(), "", "the file is empty");
        if (!state_.TakeSource(util::FileNameOf(source), file.Bytes()))
            return run_.Ui().Report(file.Name() + ": has been taken before; nothing of it is taken again");
        importer::GmlFile gml(run_, file);
        importer::GmlCounts read;
        UpdateCounts counts;
        std::uint64_t unknown = 0;
        gml.ReadFeatures([&](const GmlFeature& feature) {
            platform::ThrowIfStopped();
            bool isDeparted = background::IsDeparted(feature);
            if (!isDeparted) read.Count(feature);
            if (!isDeparted && (feature.parts.empty() || !feature.damage.empty())) return;
            if (options_.appliesUpdates && background::ToidOf(feature).empty())
                ++unknown;
            else
                state_.Apply(feature, counts);
        });
        bool isUpdate = unknown == 0 || counts.taken + counts.notNewer + counts.departed > 0;
        if (!isUpdate)
            throw platform::ReadError(file.Name(), "", "none of its features has a TOID: no updates");
        read.Report(file.Name(), run_.Ui());
        Report(file.Name(), counts, unknown);
        if (!statePath_.empty()) taken_.push_back(source);
    }

    void Report(const std::string& file, const UpdateCounts& counts, std::uint64_t unknown) {
        std::string text = file + ": " + util::Counted(counts.taken, "feature") + " taken";
        auto add = [&](std::uint64_t count, const char* what) {
            if (count > 0) text += ", " + util::GroupedCount(count) + what;
        };
        add(counts.notNewer, " not newer than those that are there");
        add(counts.departed, " departed");
        add(unknown, " without a TOID left out");
        run_.Ui().Report(text);
    }

    void BackUp(const std::string& source) const {
        std::string copy = util::JoinPath(options_.backupFolder, util::FileNameOf(source));
        if (platform::FileExists(copy)) {
            if (platform::MappedFile(copy).Text() == platform::MappedFile(source).Text()) return;
            copy = util::NextFreeName(copy);
        }
        platform::CopyWholeFile(source, copy);
    }

    void Draw(drawing::DrawingSink& sink) {
        importer::GmlEntities entities(run_, sink.Drawing());
        entities.BeginFile(false);
        bool isEmpty = true;
        state_.ForEachFeature([&](GmlFeature& feature, std::size_t bytesRead) {
            platform::ThrowIfStopped();
            isEmpty = false;
            CompleteClasses(feature);
            entities.Add(feature, bytesRead);
            sink.FeatureDone();
        });
        if (isEmpty && !options_.appliesUpdates)
            throw platform::ReadError(platform::NativePath(command_.source), "", "no features were found");
        sink.Commit();
    }

    config::Run& run_;
    const Command& command_;
    UpdateOptions options_;
    std::string statePath_;  ///< "" when it goes with the run
    FeatureState state_;
    std::vector<std::string> taken_;  ///< sources to be copied beside the state
};

}  // namespace

void BuildTopography(config::Run& run, const Command& command) {
    Topography(run, command).Build();
}

}  // namespace vexlator::backgroundbuilder
