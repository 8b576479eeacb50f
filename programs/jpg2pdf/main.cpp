// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// jpg2pdf: joins JPEG pictures into a PDF file, a page each, and keeps their bytes as they are.
#include "formats/pdf/ImageBook.h"
#include "jpg2pdf/Command.h"
#include "mapbook/pages/PageList.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::jpg2pdf {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: jpg2pdf IMAGE.JPG... [-c BOOK.CFG] -o OUT.PDF\n"
    "       jpg2pdf --help | --version\n";

constexpr std::string_view help =
    "\n"
    "Makes a PDF file of JPEG pictures, a page each, in the order of their names on the command line. The\n"
    "pictures' bytes stay as they are. * and ? in a name stand for any text and any character.\n"
    "\n"
    "  -c BOOK.CFG   the pages' pictures, titles, paper and places on earth; a picture that it does not\n"
    "                name comes before its pages; a file that does not exist counts as empty\n"
    "  -o OUT.PDF    the output, which stays unchanged when a picture is damaged\n"
    "\n"
    "Exit status: 0 done; 1 failed, and the output is unchanged; 2 wrong use.\n";

int Complain(const std::string& reason, int status) {
    std::string line = "jpg2pdf: " + reason + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return status;
}

mapbook::PageList ListOf(const std::string& configuration) {
    if (configuration.empty() || !platform::FileExists(configuration)) return {};
    platform::MappedFile file(configuration);
    try {
        return mapbook::ReadPageList(file.Text());
    } catch (const platform::ReadError& error) {
        throw error.InFile(file.Name());
    }
}

std::vector<std::string> FilesOf(const std::string& image) {
    std::string name = util::FileNameOf(image), folder = util::FolderOf(image);
    if (name.find_first_of("*?") == std::string::npos) return {image};
    std::vector<std::string> files;
    for (const std::string& file : platform::ListFiles(folder.empty() ? "." : folder))
        if (util::MatchesPattern(file, name))
            files.push_back(folder.empty() ? file : util::JoinPath(folder, file));
    if (files.empty()) throw platform::ReadError(platform::NativePath(image), "", "no file matches");
    return files;
}

/// The pictures of the command that the configuration does not name, then its pages.
mapbook::PageList PagesOf(const Command& command) {
    mapbook::PageList list = ListOf(command.configuration);
    auto isSame = [](const std::string& a, const std::string& b) {
        return platform::SameNoCase(platform::NativePath(a), platform::NativePath(b));
    };
    std::vector<mapbook::ListedPage> pages;
    for (const std::string& image : command.images)
        for (const std::string& file : FilesOf(image))
            if (std::ranges::none_of(list.pages, [&](const auto& page) { return isSame(page.image, file); }))
                pages.push_back({.image = file, .title = util::BaseNameOf(file)});
    list.pages.insert(list.pages.begin(), pages.begin(), pages.end());
    return list;
}

void AddPage(formats::ImageBook& book, const mapbook::PageList& list, const mapbook::ListedPage& page) {
    platform::ThrowIfStopped();
    platform::MappedFile image(page.image);
    try {
        book.AddPage(image.Text(), {.title = page.title,
                                    .width = page.width * formats::pointsPerMillimetre,
                                    .height = page.height * formats::pointsPerMillimetre,
                                    .place = list.PlaceOf(page)});
    } catch (const platform::ReadError& error) {
        throw error.InFile(image.Name());
    }
}

int Perform(const Command& command) {
    mapbook::PageList list = PagesOf(command);
    if (list.pages.empty())
        throw platform::ReadError(platform::NativePath(command.configuration), "", "names no page");
    platform::OutputFile file(command.output);
    formats::ImageBook book(file);
    for (const mapbook::ListedPage& page : list.pages) AddPage(book, list, page);
    book.Finish(list.title.empty() ? util::BaseNameOf(command.output) : list.title);
    file.Commit();
    return done;
}

int Run(const std::vector<std::string>& arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? std::string(usage).append(help) : "jpg2pdf " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
        return done;
    }
    try {
        return Perform(ParseCommand(arguments));
    } catch (const WrongUse& error) {
        Complain(error.what(), wrongUse);
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    } catch (const platform::Stopped&) {
        Complain("stopped; the output is unchanged", failed);
        platform::EndBySignal();
        return failed;
    } catch (const std::exception& error) {
        return Complain(error.what(), failed);
    }
}

}  // namespace

}  // namespace vexlator::jpg2pdf

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    vexlator::platform::StopOnSignals();
    try {
        return vexlator::jpg2pdf::Run({argv + 1, argv + argc});
    } catch (const vexlator::platform::OutputError&) {
        return 1;
    }
}
