// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/pdf/PdfSupplement.h"

#include "formats/pdf/PdfWriter.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdint>

namespace vexlator::formats {

namespace {

[[noreturn]] void RefusePdf(const std::string& reason) {
    throw platform::ReadError("", "", "a PDF file that cannot be added to: " + reason);
}

/// The objects of a file, by its table.
class PdfObjects {
public:
    explicit PdfObjects(std::string_view pdf) : pdf_(pdf) {
        std::size_t mark = pdf.rfind("startxref");
        if (mark == std::string_view::npos) RefusePdf("it has no end");
        start_ = static_cast<std::size_t>(util::NumberOf(util::Trim(pdf.substr(mark + 9), util::lineBlanks)));
        std::size_t trailer = pdf.find("trailer", std::min(start_, pdf.size()));
        if (start_ >= pdf.size() || !pdf.substr(start_).starts_with("xref") ||
            trailer == std::string_view::npos)
            RefusePdf("it has no plain table of objects");
        ReadTable(pdf.substr(start_, trailer - start_));
        trailer_ = pdf.substr(trailer, mark - trailer);
    }

    std::size_t Start() const { return start_; }
    std::string_view Trailer() const { return trailer_; }
    int Count() const { return static_cast<int>(offsets_.size()); }
    /// A dictionary, from "<<" to ">>".
    std::string_view Dictionary(int number) const {
        if (number <= 0 || number >= Count() || offsets_[std::size_t(number)] >= pdf_.size())
            RefusePdf("object " + std::to_string(number) + " is missing");
        std::string_view rest = pdf_.substr(offsets_[std::size_t(number)]);
        std::size_t end = rest.find("endobj"), begin = rest.find("<<");
        if (end == std::string_view::npos || begin > end) RefusePdf("an object does not end");
        std::string_view object = rest.substr(begin, end - begin);
        return object.substr(0, object.rfind(">>") + 2);
    }

private:
    /// One range of entries of twenty bytes.
    void ReadTable(std::string_view table) {
        constexpr std::size_t entrySize = 20;
        std::size_t begin = table.find('\n'), line = table.find('\n', begin + 1);
        if (line == std::string_view::npos || util::NumberOf(table.substr(begin + 1)) != 0)
            RefusePdf("its table has several parts");
        for (std::string_view rest = table.substr(line + 1); rest.size() >= entrySize;
             rest.remove_prefix(entrySize))
            offsets_.push_back(static_cast<std::size_t>(util::NumberOf(rest.substr(0, 10))));
    }

    std::string_view pdf_, trailer_;
    std::size_t start_ = 0;
    std::vector<std::size_t> offsets_;
};

/// The number of the object to which a dictionary's entry refers.
int ReferenceIn(std::string_view dictionary, std::string_view key) {
    std::size_t at = dictionary.find(key);
    if (at == std::string_view::npos) RefusePdf("it lacks " + std::string(key));
    return static_cast<int>(util::NumberOf(util::Trim(dictionary.substr(at + key.size()), util::lineBlanks)));
}

std::vector<int> PagesIn(std::string_view pageTree) {
    std::size_t begin = pageTree.find('['), end = pageTree.find(']', begin);
    if (end == std::string_view::npos) RefusePdf("it lacks a list of pages");
    std::vector<int> pages;
    std::string_view list = pageTree.substr(begin + 1, end - begin - 1);
    for (std::size_t i = 0; (i = list.find_first_of("0123456789", i)) != std::string_view::npos;) {
        pages.push_back(static_cast<int>(util::NumberOf(list.substr(i))));
        i = list.find('R', i);
    }
    return pages;
}

/// Objects that are appended.
class Appended {
public:
    Appended(std::string_view pdf, int objects) : begin_(pdf.size()), objects_(objects) {
        if (!pdf.ends_with('\n')) text_ += '\n';
    }
    int NewObject() { return objects_++; }
    void Write(int number, std::string_view content) {
        table_.Add(number, begin_ + text_.size());
        text_.append(std::to_string(number)).append(" 0 obj\n").append(content).append("\nendobj\n");
    }
    /// An object of the file, with further entries.
    void Change(int number, std::string_view dictionary, const std::string& entries) {
        Write(number, std::string(dictionary.substr(0, dictionary.size() - 2)) + " " + entries + " >>");
    }
    std::string Finish(std::string_view trailer) {
        return text_ +
               table_.Text(begin_ + text_.size(), "/Size " + std::to_string(objects_) + std::string(trailer));
    }

private:
    std::uint64_t begin_;
    int objects_;
    std::string text_;
    PdfObjectTable table_;
};

}  // namespace

std::string PdfSupplementFor(std::string_view pdf, const std::vector<PdfPageSupplement>& pages) {
    PdfObjects objects(pdf);
    int catalogue = ReferenceIn(objects.Trailer(), "/Root"),
        information = ReferenceIn(objects.Trailer(), "/Info");
    std::string_view root = objects.Dictionary(catalogue);
    std::vector<int> numbers = PagesIn(objects.Dictionary(ReferenceIn(root, "/Pages")));
    if (numbers.size() != pages.size()) RefusePdf("it has " + std::to_string(numbers.size()) + " pages");
    Appended appended(pdf, objects.Count());
    std::vector<PdfOutline::Entry> entries;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (pages[i].place)
            appended.Change(numbers[i], objects.Dictionary(numbers[i]), PdfViewport(*pages[i].place));
        entries.push_back({pages[i].title, numbers[i]});
    }
    int outline = PdfOutline::Write(
        entries, [&] { return appended.NewObject(); },
        [&](int number, std::string_view content) { appended.Write(number, content); });
    appended.Change(catalogue, root, "/Outlines " + PdfReference(outline) + " /PageMode /UseOutlines");
    return appended.Finish(" /Root " + PdfReference(catalogue) + " /Info " + PdfReference(information) +
                           " /Prev " + std::to_string(objects.Start()));
}

}  // namespace vexlator::formats
