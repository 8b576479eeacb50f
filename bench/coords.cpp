// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

/// coords INSTALLATION to-latlng|to-grid POINTS: reads lines of two numbers (x and y), converts them and
/// prints them, like the projection library's `cct`. The seconds of the conversion alone go to standard
/// error.
#include "coords/frmLatLng.h"
#include "platform/Files.h"
#include "ui/UserInterface.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace vexlator;

class StderrUi : public ui::UserInterface {
public:
    void ShowMessage(std::string_view text) override { Report(text); }
    bool AskYesNo(std::string_view text) override {
        Report(text);
        return false;
    }
    void Report(std::string_view line) override { std::fprintf(stderr, "%s\n", std::string(line).c_str()); }
    std::unique_ptr<ui::FormView> ShowForm(std::string_view) override { return nullptr; }
    void Settle(double) override {}
    void Beep() override {}
};

std::vector<util::PlanePoint> ReadPoints(const char* path) {
    platform::MappedFile file(path);
    util::LineReader lines(file.Text());
    std::vector<util::PlanePoint> points;
    while (!lines.AtEnd()) {
        std::string_view line = lines.ReadTextLine();
        points.push_back({util::NumberOf(line), util::NumberOf(util::GetField(1, line, " "))});
    }
    return points;
}

void Print(const std::vector<util::PlanePoint>& points, int decimals) {
    std::string text;
    for (const util::PlanePoint& p : points)
        text += util::FormatFixed(p.x, decimals) + " " + util::FormatFixed(p.y, decimals) + "\n";
    std::fwrite(text.data(), 1, text.size(), stdout);
}

int Convert(const char* folder, bool toGrid, const char* source) {
    StderrUi ui;
    config::Installation installation;
    config::Run run(installation, ui);
    installation.Settings().ProgramFolder = folder;
    std::vector<util::PlanePoint> points = ReadPoints(source);
    auto start = std::chrono::steady_clock::now();
    coords::frmLatLng form(run);
    std::size_t failed = toGrid ? form.LatLngToGrid(points) : form.GridToLatLng(points);
    std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::fprintf(stderr, "%.3f\n", seconds.count());
    Print(points, toGrid ? 3 : 6);
    return failed == 0 ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) return 2;
    try {
        return Convert(arguments[1], std::string_view(arguments[2]) == "to-grid", arguments[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
