// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/ReportPage.h"

#include "ReportTemplate.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/JsonText.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace vexlator::batch {

namespace {

std::string Base64(std::string_view bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k > bytes.size() ? '=' : digits[group >> (18 - 6 * k) & 63];
    }
    return text;
}

/// The data of the page as JSON. The names are short because there is a row per command.
class PageData {
public:
    explicit PageData(std::string_view list, const std::string& journal) {
        text_ += "{\"list\":";
        util::AppendText(text_, list);
        text_ += ",\"journal\":";
        util::AppendText(text_, journal);
        text_ += ",\"made\":\"" + TimeText(Now()) + "\",\"rows\":[";
    }
    void AddRow(const Entry& entry, const Pictures& pictures) {
        if (text_.back() != '[') text_ += ",\n";
        text_ += "{\"s\":\"" + std::string(NameOf(entry.status)) + "\",\"x\":" + std::to_string(entry.exit);
        Text("c", entry.command);
        Text("t", entry.start);
        text_ += ",\"d\":" + util::FormatFixed(entry.seconds, 3);
        text_ += ",\"f\":" + std::to_string(entry.features);
        if (!entry.outputs.empty()) Text("o", entry.outputs.front());
        if (!entry.losses.empty()) Text("l", entry.losses);
        AddMessages(entry);
        auto picture = pictures.find(DrawingOf(entry));
        if (picture != pictures.end()) Text("p", Base64(picture->second));
        text_ += '}';
    }
    /// Escaped for a page: no text can end its script element.
    std::string Take() { return util::ReplaceAll(std::move(text_) + "]}", "<", "\\u003c"); }

private:
    void Text(std::string_view name, std::string_view value) {
        text_.append(",\"").append(name).append("\":");
        util::AppendText(text_, value);
    }
    void AddMessages(const Entry& entry) {
        std::string all;
        for (const std::string& message : entry.messages) all += (all.empty() ? "" : "\n") + message;
        if (!all.empty()) Text("m", all);
    }

    std::string text_;
};

}  // namespace

std::string DrawingOf(const Entry& entry) {
    if (entry.status != Status::Done) return "";
    for (const std::string& output : entry.outputs)
        if (platform::SameNoCase(util::ExtensionOf(output), "VDF")) return output;
    return entry.sources.empty() ? "" : entry.sources.front().path;
}

std::string ReportPage(std::string_view list, const std::vector<std::string>& commands, Journal& journal,
                       const Pictures& pictures) {
    PageData data(list, journal.Name());
    for (const std::string& command : commands) {
        Entry notRun;
        notRun.command = command;
        Entry entry = journal.Last(command).value_or(notRun);
        data.AddRow(entry.status == Status::Begun ? notRun : entry, pictures);
    }
    constexpr std::string_view mark = "@DATA@";
    std::string page = reportTemplate;
    return page.replace(page.find(mark), mark.size(), data.Take());
}

}  // namespace vexlator::batch
