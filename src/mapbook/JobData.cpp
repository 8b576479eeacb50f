// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/JobData.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace vexlator::mapbook {

namespace {

/// The job's values stand behind the second comma; a comma in them is written as ";;".
std::string ValueIn(std::string_view record) {
    std::size_t comma = record.find(',', record.find(',') + 1);
    if (comma == std::string_view::npos) return "";
    return util::ReplaceAll(util::Trim(platform::AsUtf8(record.substr(comma + 1)), util::lineBlanks), ";;",
                            ",");
}

std::string ProjectOf(const config::Run& run, std::string_view drawingPath) {
    const config::JobPath& job = run.Job();
    if (util::CountOf(job.relative, "\\") > 1) return std::string(util::GetField(1, job.relative, "\\"));
    std::string path(job.full.empty() ? drawingPath : job.full);
    return util::FileNameOf(util::FolderOf(platform::AbsolutePath(path)));
}

}  // namespace

void TakeCommandRecords(std::string_view jobText, JobData& data) {
    std::string date;
    struct Field {
        std::string_view key;
        std::string& value;
    };
    const Field fields[] = {{"DESC", data.description},
                            {"PACKAGECREATED", data.created},
                            {"DATE", date},
                            {"DEVICE", data.device},
                            {"KEYID", data.keyId}};
    util::LineReader lines(jobText);
    while (!lines.AtEnd()) {
        std::string_view record = lines.ReadTextLine();
        if (!record.starts_with("CO,")) continue;
        std::string_view key = util::Trim(util::GetCommaField(1, record));
        for (const Field& field : fields)
            if (field.value.empty() && platform::SameNoCase(field.key, key)) field.value = ValueIn(record);
    }
    if (data.created.empty()) data.created = date;
}

JobData ReadJobData(const config::Run& run, std::string_view drawingPath) {
    JobData data;
    data.project = ProjectOf(run, drawingPath);
    data.name = util::BaseNameOf(run.Job().full.empty() ? std::string(drawingPath) : run.Job().full);
    if (auto file = util::OpenFile(run.Job().full)) TakeCommandRecords(file->Text(), data);
    return data;
}

}  // namespace vexlator::mapbook
