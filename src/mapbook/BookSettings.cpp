// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/BookSettings.h"

namespace vexlator::mapbook {

namespace {

constexpr int largestNumber = 9999;
constexpr int largestScale = 10'000'000;

using Keys = config::Keys<BookSettings>;

constexpr config::KeyOf<BookSettings> keys[] = {
    Keys::Text("PDF", "SEQFEATURE", &BookSettings::seqFeature,
               "feature code of the page frames of map books: its symbols", "no frames"),
    Keys::Text("PDF", "FOLDER", &BookSettings::folder,
               "folder of map books; a full stop is the folder of the drawing's name, as for other exports",
               "the folder Temp beside gv.ini", "."),
    Keys::Number("PDF", "MINSPACE", &BookSettings::minSpace, "least page number of map books", "0", 0,
                 largestNumber),
    Keys::Number("PDF", "MAXSPACE", &BookSettings::maxSpace,
                 "largest page number of map books; 0 is no limit", "0", 0, largestNumber),
    Keys::Flag("PDF", "ToPDF", &BookSettings::toPdf, "the pages of a map book are joined into a PDF file",
               true),
    Keys::Text("PDF", "SYMSIZE", &BookSettings::symbolSize, "scale of all symbols in map books, as in 0.5",
               "unchanged"),
    Keys::Flag("PDF", "AnnoHot", &BookSettings::annotatesLinks,
               "features with a HOTLINK get it as a text in map books"),
    Keys::Flag(
        "PDF", "Dunlevys", &BookSettings::surveyLayout,
        "map books have the layout of drainage surveys: annotation, line types, filled waters, tadpoles"),
    Keys::Flag("PDF", "BKGND", &BookSettings::background, "map books have a background map"),
    Keys::Text(
        "PDF", "Vector", &BookSettings::vector,
        "1: the PDF file is drawn, so that lines are sharp and texts are found; 0: it is made of the page "
        "images",
        "1, unless another jpg2pdf is installed"),
    Keys::Switch("PDF", "Images", &BookSettings::images,
                 "the pages of a map book are written as JPEG files too"),
    Keys::Text("PDF", "Paper", &BookSettings::paper, "paper of map books, A4 or A3",
               "A4, or A3 for a frame that A4 would show at less than 1:500"),
    Keys::Number("PDF", "Grid", &BookSettings::grid,
                 "scale of the pages that are laid over a drawing without page frames, as in 1000; 0 is none",
                 "0", 0, largestScale),
    Keys::File("PDF", "Package", &BookSettings::package, "background package of map books",
               "the one beside the drawing, with its name"),
};

}  // namespace

int LargestPage(const BookSettings& settings) {
    return settings.maxSpace == 0 ? largestNumber : settings.maxSpace;
}

BookSettings ReadBookSettings(const config::Run& run) {
    return config::ReadKeys<BookSettings>(run.Installation(), keys);
}

void WriteBookSettings(config::Run& run, const BookSettings& settings) {
    auto flag = [](bool isOn) { return isOn ? "1" : "0"; };
    run.WriteIni("PDF", "SEQFEATURE", settings.seqFeature);
    run.WriteIni("PDF", "FOLDER", settings.folder);
    run.WriteIni("PDF", "MINSPACE", std::to_string(settings.minSpace));
    run.WriteIni("PDF", "MAXSPACE", std::to_string(settings.maxSpace));
    run.WriteIni("PDF", "ToPDF", flag(settings.toPdf));
    run.WriteIni("PDF", "SYMSIZE", settings.symbolSize);
    run.WriteIni("PDF", "AnnoHot", flag(settings.annotatesLinks));
    run.WriteIni("PDF", "Dunlevys", flag(settings.surveyLayout));
    run.WriteIni("PDF", "BKGND", flag(settings.background));
}

config::KeyList BookKeys() {
    return config::ListOf<BookSettings>(keys);
}

}  // namespace vexlator::mapbook
