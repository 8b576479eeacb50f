// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/html/SurveyPage.h"

#include "formats/xml/XmlText.h"

namespace vexlator::formats {

namespace {

constexpr std::string_view pageBegin =
    "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
    "<meta name=\"viewport\" content=\"width=device-width\">\n<title>";

constexpr std::string_view pageStyle = R"(</title>
<style>
@page { size: A4; margin: 15mm }
body { font: 10pt/1.4 "DejaVu Sans", Arial, sans-serif; color: #222; max-width: 180mm; margin: 10mm auto; padding: 0 5mm }
h1 { font-size: 17pt; margin: 0 }
.subtitle { color: #555; margin: 0 0 6mm; border-bottom: 1pt solid #4a7a3a; padding-bottom: 2mm }
section { break-inside: avoid; margin: 0 0 7mm }
h2 { font-size: 12pt; margin: 0 0 1.5mm; color: #35602a; break-after: avoid }
table { border-collapse: collapse; width: 100% }
th, td { text-align: left; vertical-align: top; border-bottom: .5pt solid #ccc; padding: .8mm 2mm; overflow-wrap: anywhere; white-space: pre-wrap }
th { width: 32%; font-weight: normal; color: #555 }
.pictures { display: flex; flex-wrap: wrap; gap: 4mm; margin-top: 3mm }
figure { box-sizing: border-box; margin: 0; width: 85mm; break-inside: avoid }
img { width: 100%; max-height: 100mm; object-fit: contain; object-position: left; display: block }
figcaption { font-size: 8pt; color: #555; overflow-wrap: anywhere }
.missing { border: .5pt dashed #999; color: #777; padding: 3mm }
@media print { body { max-width: none; margin: 0; padding: 0 } }
</style>
</head>
<body>
<h1>)";

/// The type of a picture by its first bytes; "" for others.
std::string_view PictureType(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xD8\xFF")) return "image/jpeg";
    return bytes.starts_with("BM") ? "image/bmp" : "";
}

void WriteBase64(platform::OutputFile& file, std::string_view bytes) {
    static constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    auto at = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) : 0U;
    };
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = at(i) << 16 | at(i + 1) << 8 | at(i + 2);
        char* out = file.Reserve(4);
        out[0] = digits[group >> 18];
        out[1] = digits[group >> 12 & 63];
        out[2] = i + 1 < bytes.size() ? digits[group >> 6 & 63] : '=';
        out[3] = i + 2 < bytes.size() ? digits[group & 63] : '=';
        file.Advance(4);
    }
}

}  // namespace

SurveyPage::SurveyPage(platform::OutputFile& file, std::string_view title, std::string_view subtitle)
    : file_(file) {
    file_.Write(pageBegin);
    WriteXmlText(file_, title);
    file_.Write(pageStyle);
    WriteXmlText(file_, title);
    file_.Write("</h1>\n<p class=\"subtitle\">");
    WriteXmlText(file_, subtitle);
    file_.Write("</p>\n");
}

void SurveyPage::BeginFeature(std::string_view heading) {
    file_.Write("<section>\n<h2>");
    WriteXmlText(file_, heading);
    file_.Write("</h2>\n<table>\n");
    inTable_ = true;
}

std::uint64_t SurveyPage::AddValue(std::string_view name, std::string_view value) {
    file_.Write("<tr><th>");
    WriteXmlText(file_, name);
    file_.Write("</th><td>");
    std::uint64_t replaced = WriteXmlText(file_, value);
    file_.Write("</td></tr>\n");
    return replaced;
}

void SurveyPage::EndTable() {
    if (inTable_) file_.Write("</table>\n<div class=\"pictures\">\n");
    inTable_ = false;
}

bool SurveyPage::AddPicture(std::string_view bytes, std::string_view caption) {
    std::string_view type = PictureType(bytes);
    if (type.empty()) return false;
    EndTable();
    file_.Write("<figure><img alt=\"\" src=\"data:");
    file_.Write(type);
    file_.Write(";base64,");
    WriteBase64(file_, bytes);
    file_.Write("\"><figcaption>");
    WriteXmlText(file_, caption);
    file_.Write("</figcaption></figure>\n");
    return true;
}

void SurveyPage::AddMissing(std::string_view caption) {
    EndTable();
    file_.Write("<figure class=\"missing\">");
    WriteXmlText(file_, caption);
    file_.Write(": missing</figure>\n");
}

void SurveyPage::EndFeature() {
    file_.Write(inTable_ ? "</table>\n</section>\n" : "</div>\n</section>\n");
    inTable_ = false;
}

void SurveyPage::Finish() {
    file_.Write("</body>\n</html>\n");
}

}  // namespace vexlator::formats
