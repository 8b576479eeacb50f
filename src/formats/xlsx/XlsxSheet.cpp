// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xlsx/XlsxSheet.h"

#include "formats/xlsx/XlsxRows.h"
#include "formats/xml/XmlMemory.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

/// Thrown where the rest of a sheet does not matter.
struct SeenEnough {};

/// The column of a cell's reference such as "AB12", counted from 0.
int ColumnOfReference(std::string_view reference) {
    int column = 0;
    for (char c : reference) {
        if (c < 'A' || c > 'Z' || column > static_cast<int>(XlsxRows::mostColumns)) break;
        column = column * 26 + (c - 'A') + 1;
    }
    return column - 1;
}

std::string_view AttributeOf(XmlAttributes attributes, std::string_view name) {
    auto found = std::ranges::find(attributes, name, &XmlAttribute::name);
    return found == attributes.end() ? "" : found->value;
}

/// Without the optional element that tells the range of the old rows.
std::string WithoutDimension(std::string head) {
    std::size_t begin = head.find("<dimension ");
    std::size_t end = head.find("/>", begin == std::string::npos ? 0 : begin);
    if (begin != std::string::npos && end != std::string::npos) head.erase(begin, end + 2 - begin);
    return head;
}

}  // namespace

std::string XlsxColumnName(int column) {
    std::string name;
    for (++column; column > 0; column = (column - 1) / 26)
        name.insert(name.begin(), static_cast<char>('A' + (column - 1) % 26));
    return name;
}

/// Finds the names in the first row and the looks of the second.
class XlsxSheet::Reader : public XmlHandler {
public:
    Reader(XlsxSheet& sheet, const std::vector<std::string>& strings) : sheet_(sheet), strings_(strings) {}

    void StartElement(std::string_view name, XmlAttributes attributes) override {
        if (name == "col") return TakeColumns(attributes);
        if (name == "row" && ++row_ == 3) throw SeenEnough();
        if (name == "row" && row_ == 2) return TakeRow(attributes);
        if (name == "c") return TakeCell(attributes);
        takesText_ = row_ == 1 && (name == "v" || name == "t");
        if (name == "sheetData" || name == "mergeCells") text_.clear();
    }
    void EndElement() override { takesText_ = false; }
    void Text(std::string_view text) override {
        if (takesText_) text_ += text;
    }
    /// Gives the last cell its name.
    void NameCell() {
        if (row_ != 1 || cell_ < 0) return;
        auto index = static_cast<std::uint64_t>(std::max<std::int64_t>(util::IntegerOf(text_), 0));
        if (isShared_) text_ = index < strings_.size() ? strings_[index] : "";
        std::string key = platform::LowerAscii(util::Trim(text_, util::lineBlanks));
        if (!key.empty()) sheet_.columns_.try_emplace(key, cell_);
        cell_ = -1;
    }

private:
    void TakeColumns(XmlAttributes attributes) {
        std::string_view style = AttributeOf(attributes, "style");
        if (style.empty()) return;
        std::int64_t first = util::IntegerOf(AttributeOf(attributes, "min"));
        std::int64_t last = util::IntegerOf(AttributeOf(attributes, "max"));
        last = std::min<std::int64_t>(last, static_cast<std::int64_t>(XlsxRows::mostColumns));
        for (std::int64_t i = std::max<std::int64_t>(first, 1); i <= last; ++i)
            sheet_.styles_[static_cast<int>(i - 1)] = NumberText(style);
    }
    void TakeRow(XmlAttributes attributes) {
        NameCell();
        for (const XmlAttribute& attribute : attributes)
            if (attribute.name == "s" || attribute.name == "customFormat" || attribute.name == "ht" ||
                attribute.name == "customHeight")
                sheet_.rowAttributes_.append(" ")
                    .append(attribute.name)
                    .append("=\"")
                    .append(util::FormatShortest(util::NumberOf(attribute.value)) + "\"");
    }
    void TakeCell(XmlAttributes attributes) {
        NameCell();
        text_.clear();
        std::string_view reference = AttributeOf(attributes, "r");
        cell_ = reference.empty() ? lastCell_ + 1 : ColumnOfReference(reference);
        lastCell_ = cell_;
        isShared_ = AttributeOf(attributes, "t") == "s";
        std::string_view style = AttributeOf(attributes, "s");
        if (row_ == 2 && !style.empty()) sheet_.styles_[cell_] = NumberText(style);
    }
    /// A number and nothing else, since it is written again.
    static std::string NumberText(std::string_view style) { return std::to_string(util::IntegerOf(style)); }

    XlsxSheet& sheet_;
    const std::vector<std::string>& strings_;
    int row_ = 0, cell_ = -1, lastCell_ = -1;
    bool isShared_ = false, takesText_ = false;
    std::string text_;
};

XlsxSheet::XlsxSheet(std::string name, std::string part, const std::string& xml,
                     const std::vector<std::string>& strings)
    : name_(std::move(name)), part_(std::move(part)) {
    Reader reader(*this, strings);
    try {
        ParseXmlText(xml, reader);
    } catch (const SeenEnough&) {
    }
    reader.NameCell();
    std::size_t data = xml.find("<sheetData>"), end = xml.find("</sheetData>");
    std::size_t first = data == std::string::npos ? data : xml.find("</row>", data);
    if (first == std::string::npos || end == std::string::npos || first > end) {
        columns_.clear();  // there is no first row
        return;
    }
    constexpr std::size_t rowEnd = 6;
    head_ = WithoutDimension(xml.substr(0, first + rowEnd));
    tail_ = xml.substr(end);
}

int XlsxSheet::ColumnOf(std::string_view name) const {
    auto found = columns_.find(platform::LowerAscii(util::Trim(name, util::lineBlanks)));
    return found == columns_.end() ? -1 : found->second;
}

void XlsxSheet::BeginRows(const std::string& folder) {
    if (!rows_) rows_.emplace(folder);
}

bool XlsxSheet::IsFull() const {
    return row_ == XlsxRows::mostRows;
}

void XlsxSheet::BeginRow() {
    EndRows();
    rows_->Append("<row r=\"" + std::to_string(++row_) + "\"" + rowAttributes_ + ">");
    inRow_ = true;
}

void XlsxSheet::EndRows() {
    if (!inRow_) return;
    for (const auto& [column, cell] : cells_) rows_->Append(cell);
    rows_->Append("</row>");
    cells_.clear();
    inRow_ = false;
}

void XlsxSheet::Cell(int column, std::string_view type, std::string_view inside) {
    std::string cell = "<c r=\"" + XlsxColumnName(column) + std::to_string(row_) + "\"";
    auto style = styles_.find(column);
    if (style != styles_.end()) cell += " s=\"" + style->second + "\"";
    cell.append(type).append(">").append(inside).append("</c>");
    cells_[column] = std::move(cell);
}

void XlsxSheet::AddText(int column, std::string_view text) {
    Cell(column, " t=\"inlineStr\"", "<is><t xml:space=\"preserve\">" + XmlEscaped(text) + "</t></is>");
}

void XlsxSheet::AddNumber(int column, double number) {
    Cell(column, "", "<v>" + util::FormatShortest(number) + "</v>");
}

void XlsxSheet::AddFormula(int column, std::string_view formula, std::string_view shown) {
    Cell(column, " t=\"str\"", "<f>" + XmlEscaped(formula) + "</f><v>" + XmlEscaped(shown) + "</v>");
}

std::size_t XlsxSheet::Read(std::uint64_t offset, char* target, std::size_t size) {
    if (offset < head_.size()) return head_.copy(target, size, offset);
    offset -= head_.size();
    if (offset < rows_->Size()) {
        size = static_cast<std::size_t>(std::min<std::uint64_t>(size, rows_->Size() - offset));
        rows_->ReadAt(offset, target, size);
        return size;
    }
    offset -= rows_->Size();
    return offset < tail_.size() ? tail_.copy(target, size, offset) : 0;
}

}  // namespace vexlator::formats
