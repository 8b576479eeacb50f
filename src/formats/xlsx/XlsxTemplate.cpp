// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xlsx/XlsxTemplate.h"

#include "formats/xml/XmlMemory.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "util/Text.h"

#include <algorithm>
#include <ctime>
#include <map>
#include <new>
#include <zip.h>

namespace vexlator::formats {

namespace {

constexpr std::uint64_t largestPart = std::uint64_t{64} << 20;
constexpr std::size_t longestFormulaText = 255;

std::string_view AttributeBehindPrefix(XmlAttributes attributes, std::string_view name) {
    for (const XmlAttribute& attribute : attributes)
        if (attribute.name.substr(attribute.name.find(':') + 1) == name) return attribute.value;
    return "";
}

/// The sheets' names, each with the identifier of the relation to its part.
struct SheetList : XmlHandler {
    std::vector<std::pair<std::string, std::string>> sheets;
    void StartElement(std::string_view name, XmlAttributes attributes) override {
        if (name != "sheet") return;
        std::string_view relation;
        for (const XmlAttribute& attribute : attributes)
            if (attribute.name.ends_with(":id")) relation = attribute.value;
        sheets.emplace_back(AttributeBehindPrefix(attributes, "name"), relation);
    }
    void EndElement() override {}
    void Text(std::string_view) override {}
};

/// Targets of relations by their identifiers.
struct RelationList : XmlHandler {
    std::map<std::string, std::string, std::less<>> targets;
    void StartElement(std::string_view name, XmlAttributes attributes) override {
        if (name == "Relationship")
            targets.emplace(AttributeBehindPrefix(attributes, "Id"),
                            AttributeBehindPrefix(attributes, "Target"));
    }
    void EndElement() override {}
    void Text(std::string_view) override {}
};

/// Shared strings, without the hints for their pronunciation.
struct StringList : XmlHandler {
    std::vector<std::string> strings;
    void StartElement(std::string_view name, XmlAttributes) override {
        if (name == "si") strings.emplace_back();
        open_.emplace_back(name);
    }
    void EndElement() override { open_.pop_back(); }
    void Text(std::string_view text) override {
        bool isText = open_.size() > 1 && open_.back() == "t" && open_[open_.size() - 2] != "rPh";
        if (isText && !strings.empty()) strings.back() += text;
    }

private:
    std::vector<std::string> open_;
};

/// Removes the empty element that names a part.
std::string WithoutElementOf(std::string xml, std::string_view part) {
    std::size_t at = xml.find(part);
    if (at == std::string::npos) return xml;
    std::size_t begin = xml.rfind('<', at), end = xml.find("/>", at);
    if (begin != std::string::npos && end != std::string::npos) xml.erase(begin, end + 2 - begin);
    return xml;
}

/// The order in which formulas were last computed. It names cells that are gone.
constexpr std::string_view calculationChain = "calcChain.xml";

/// A sheet as a source of the archive library.
struct SheetSource {
    XlsxSheet& sheet;
    std::uint64_t offset = 0;
    zip_error_t error{};

    explicit SheetSource(XlsxSheet& read) : sheet(read) {}
    static zip_int64_t Handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command) {
        auto& source = *static_cast<SheetSource*>(self);
        switch (command) {
            case ZIP_SOURCE_OPEN:
                source.offset = 0;
                return 0;
            case ZIP_SOURCE_READ:
                return source.Read(static_cast<char*>(data), length);
            case ZIP_SOURCE_STAT:
                zip_stat_init(static_cast<zip_stat_t*>(data));
                return sizeof(zip_stat_t);
            case ZIP_SOURCE_ERROR:
                return zip_error_to_data(&source.error, data, length);
            case ZIP_SOURCE_SUPPORTS:
                return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                                      ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
            default:
                return 0;
        }
    }
    /// C code calls it, so exceptions must not leave it.
    zip_int64_t Read(char* target, zip_uint64_t length) try {
        std::size_t read = sheet.Read(offset, target, static_cast<std::size_t>(length));
        offset += read;
        return static_cast<zip_int64_t>(read);
    } catch (const platform::WriteError&) {
        zip_error_set(&error, ZIP_ER_READ, 0);
        return -1;
    }
};

}  // namespace

/// An archive in memory. Packed, even a full sheet takes some tens of megabytes.
class XlsxTemplate::NewArchive {
public:
    NewArchive() : buffer_(zip_source_buffer_create(nullptr, 0, 0, nullptr)) {
        if (buffer_) zip_source_keep(buffer_);
        archive_ = buffer_ ? zip_open_from_source(buffer_, ZIP_TRUNCATE, nullptr) : nullptr;
        if (!archive_) throw std::bad_alloc();
    }
    ~NewArchive() {
        if (archive_) zip_discard(archive_);
        zip_source_free(buffer_);
    }
    NewArchive(const NewArchive&) = delete;
    NewArchive& operator=(const NewArchive&) = delete;

    zip_t* Get() { return archive_; }
    zip_source* TextSource(std::string text) {
        const std::string& kept = texts_.emplace_back(std::move(text));
        return zip_source_buffer(archive_, kept.data(), kept.size(), 0);
    }
    zip_source* SheetSourceOf(XlsxSheet& sheet) {
        return zip_source_function(archive_, SheetSource::Handle, &sheets_.emplace_back(sheet));
    }
    void Add(const std::string& name, zip_source* source) {
        constexpr time_t fixedDate = 939686400;  // the same drawing gives the same bytes on every day
        zip_int64_t index = source ? zip_file_add(archive_, name.c_str(), source, ZIP_FL_ENC_UTF_8) : -1;
        if (index < 0) throw std::bad_alloc();
        zip_file_set_mtime(archive_, static_cast<zip_uint64_t>(index), fixedDate, 0);
    }
    /// @throws platform::WriteError
    void CopyTo(platform::OutputFile& file) {
        if (zip_close(archive_) != 0) throw platform::WriteError(file.Name(), zip_strerror(archive_));
        archive_ = nullptr;
        std::vector<char> piece(std::size_t{1} << 16);
        if (zip_source_open(buffer_) != 0) throw platform::WriteError(file.Name(), "the workbook is lost");
        zip_int64_t size = 0;
        while ((size = zip_source_read(buffer_, piece.data(), piece.size())) > 0)
            file.Write(std::string_view(piece.data(), static_cast<std::size_t>(size)));
        zip_source_close(buffer_);
    }

private:
    zip_source_t* buffer_;
    zip_t* archive_ = nullptr;
    std::deque<std::string> texts_;
    std::deque<SheetSource> sheets_;
};

namespace {

std::string FolderOf(const std::string& native) {
    return native.substr(0, native.rfind('/') + 1);
}

}  // namespace

XlsxTemplate::XlsxTemplate(std::string_view path, platform::OutputFile& file)
    : file_(file), name_(platform::MappedFile(path).Name()) {
    int error = 0;
    source_ = zip_open(name_.c_str(), ZIP_RDONLY, &error);
    if (!source_) Refuse("is no workbook (.xlsx)");
    try {
        ReadSheets();
    } catch (const platform::ReadError& reason) {
        zip_discard(source_);
        source_ = nullptr;
        throw reason.InFile(name_);
    }
}

XlsxTemplate::~XlsxTemplate() {
    if (source_) zip_discard(source_);
}

void XlsxTemplate::Refuse(const std::string& reason) const {
    throw platform::ReadError(name_, "", reason);
}

void XlsxTemplate::Fail(const std::string& reason) const {
    throw platform::WriteError(file_.Name(), reason);
}

std::string XlsxTemplate::Part(const std::string& name) const {
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_stat(source_, name.c_str(), 0, &stat) != 0) Refuse("is no workbook: it lacks " + name);
    if (stat.size > largestPart) Refuse(name + " has more than 64 MB");
    zip_file_t* part = zip_fopen(source_, name.c_str(), 0);
    std::string text(stat.size, '\0');
    zip_int64_t read = part ? zip_fread(part, text.data(), text.size()) : -1;
    if (part) zip_fclose(part);
    if (read != static_cast<zip_int64_t>(text.size())) Refuse(name + " is damaged");
    return text;
}

std::vector<std::string> XlsxTemplate::SharedStrings() const {
    if (zip_name_locate(source_, "xl/sharedStrings.xml", 0) < 0) return {};
    StringList list;
    ParseXmlText(Part("xl/sharedStrings.xml"), list);
    return std::move(list.strings);
}

void XlsxTemplate::ReadSheets() {
    SheetList list;
    RelationList relations;
    ParseXmlText(Part("xl/workbook.xml"), list);
    ParseXmlText(Part("xl/_rels/workbook.xml.rels"), relations);
    const std::vector<std::string> strings = SharedStrings();
    for (const auto& [name, relation] : list.sheets) {
        auto target = relations.targets.find(relation);
        if (target == relations.targets.end()) continue;
        bool isAbsolute = target->second.starts_with('/');
        std::string part = isAbsolute ? target->second.substr(1) : "xl/" + target->second;
        sheets_.emplace_back(name, part, Part(part), strings);
    }
}

std::size_t XlsxTemplate::AddTable(std::string_view name, const std::vector<XlsxColumn>& columns) {
    Table& table = tables_.emplace_back();
    auto sheet = std::ranges::find_if(sheets_, [&](const XlsxSheet& candidate) {
        return candidate.HasColumns() && platform::SameNoCase(candidate.Name(), name);
    });
    if (sheet != sheets_.end()) {
        table.sheet = &*sheet;
        table.sheet->BeginRows(FolderOf(file_.TemporaryName()));
    }
    for (const XlsxColumn& column : columns)
        table.places.push_back(table.sheet ? table.sheet->ColumnOf(column.name) : -1);
    return tables_.size() - 1;
}

bool XlsxTemplate::Takes(std::size_t table, std::size_t column) const {
    return column < tables_[table].places.size() && tables_[table].places[column] >= 0;
}

void XlsxTemplate::BeginRow(std::size_t table) {
    current_ = &tables_[table];
    column_ = 0;
    if (!current_->sheet) return;
    if (current_->sheet->IsFull()) Fail("a sheet of the template has no room for more rows");
    current_->sheet->BeginRow();
}

int XlsxTemplate::NextPlace() {
    std::size_t column = column_++;
    return column < current_->places.size() ? current_->places[column] : -1;
}

void XlsxTemplate::AddText(std::string_view text) {
    int place = NextPlace();
    if (place >= 0 && !text.empty()) current_->sheet->AddText(place, CellText(text));
}

void XlsxTemplate::AddNumber(double number) {
    int place = NextPlace();
    if (place >= 0) current_->sheet->AddNumber(place, number);
}

void XlsxTemplate::AddLink(std::string_view path, std::string_view text) {
    std::string address = util::PercentEncoded(path, "-._~/");
    std::string shown = CellText(text);
    if (address.size() > longestFormulaText || shown.size() > longestFormulaText) {
        ++plainLinks_;
        return AddText(text);
    }
    int place = NextPlace();
    if (place < 0) return;
    std::string formula = "HYPERLINK(\"" + address + "\",\"" + util::ReplaceAll(shown, "\"", "\"\"") + "\")";
    current_->sheet->AddFormula(place, formula, shown);
}

void XlsxTemplate::Finish() {
    NewArchive target;
    for (zip_int64_t i = 0; i < zip_get_num_entries(source_, 0); ++i) {
        std::string name = zip_get_name(source_, static_cast<zip_uint64_t>(i), 0);
        if (!name.ends_with(calculationChain))
            target.Add(name, SourceOf(target, name, static_cast<zip_uint64_t>(i)));
    }
    target.CopyTo(file_);
}

/// The new content of a part: changed, or as it was.
zip_source* XlsxTemplate::SourceOf(NewArchive& target, const std::string& name, std::uint64_t index) {
    if (name == "[Content_Types].xml" || name == "xl/_rels/workbook.xml.rels")
        return target.TextSource(WithoutElementOf(Part(name), calculationChain));
    auto sheet = std::ranges::find_if(sheets_, [&](const XlsxSheet& candidate) {
        return candidate.PartName() == name && candidate.HasRows();
    });
    if (sheet == sheets_.end()) return zip_source_zip(target.Get(), source_, index, 0, 0, -1);
    sheet->EndRows();
    return target.SheetSourceOf(*sheet);
}

}  // namespace vexlator::formats
