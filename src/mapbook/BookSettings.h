// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::mapbook {

/// Section PDF of gv.ini.
struct BookSettings {
    std::string seqFeature;  ///< layer whose inserts are the page frames
    std::string folder;      ///< for the book; "": the configuration folder's Temp; ".": the export's folder
    int minSpace = 0;        ///< least page number
    int maxSpace = 0;        ///< largest page number; 0: no limit
    bool toPdf = false;      ///< the pages are joined into a PDF file
    std::string symbolSize;  ///< of all symbols; "": unchanged
    bool annotatesLinks = false;  ///< hot-linked features get their link as a text
    bool surveyLayout = false;    ///< the drainage survey's annotation, line types and tadpoles
    bool background = false;      ///< a map behind the pages
    std::string vector;           ///< "1": the PDF file is drawn; "0": it is made of the page images
    bool images = true;           ///< page images are written
    std::string paper;            ///< "A4", "A3"; else the frame decides
    int grid = 0;                 ///< scale of pages over the drawing if it has no frames; 0: none
    std::string package;          ///< background package; "": the one beside the drawing
};

/// The largest page number that MAXSPACE allows.
int LargestPage(const BookSettings& settings);

BookSettings ReadBookSettings(const config::Run& run);
/// Writes the settings that the book's form has back to gv.ini.
void WriteBookSettings(config::Run& run, const BookSettings& settings);

config::KeyList BookKeys();

}  // namespace vexlator::mapbook
