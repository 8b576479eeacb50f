// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Table.h"
#include "fmo/Office.h"
#include "platform/Errors.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vexlator {

using drawing::Drawing;
using drawing::Entity;
using drawing::Kind;
using drawing::Point;
using test::Texts;

class FmoExportTest : public test::FmoOffice {
protected:
    void DefineValves() {
        Define("VALVES", "TABLE=Valves\nEAST=E\nNORTH=N\nKEY=ID\n");
        folder_.Write("ATP/VALVES.ATP",
                      "[26,09]\r\n[01,01]HANDLE,C32.00\r\n[01,02]DEPTH,N08.02\r\n[01,03]OWNER,C32.00\r\n");
        drawing_.setActiveLayer("VALVES");
    }
    void AddValve(double x, const std::string& id, const std::string& depth, const std::string& owner) {
        Add(drawing_.addPoint({x, 2, 0}), {{"HANDLE", id}, {"DEPTH", depth}, {"OWNER", owner}});
    }
};

TEST_P(FmoExportTest, MakesTheTableAndReplacesByKey) {
    DefineValves();
    AddValve(430000.5, "7", "1.50", "O'Brien; \"x\"");
    AddValve(1, "8", "", "Größe");
    EXPECT_EQ(Export().features, 2U);
    std::string all = "SELECT * FROM \"Valves\" ORDER BY \"ID\", \"E\"";
    EXPECT_EQ(Query(all).size(), 2U);
    EXPECT_TRUE(Query(all)[0].ends_with("|1.50|O'Brien; \"x\"")) << Query(all)[0];
    Sql("ALTER TABLE \"Valves\" ADD COLUMN remark TEXT");
    Sql("UPDATE \"Valves\" SET remark='of the office'");

    drawing_.clear();
    DefineValves();
    AddValve(5, "7", "2", "new");
    AddValve(6, "9", "3", "other");
    AddValve(7, "9", "4", "the same key");
    Add(drawing_.addPoint({8, 2, 0}),
        {{"HANDLE", "10"}, {"OWNER", "o"}, {"DEPTH", "d"}, {"EXTRA", "e"}, {"extra", "f"}});
    drawing_.addText({1, 1, 0}, "no record", 1, 0);
    drawing_.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}});
    for (int again = 0; again < 2; ++again) {
        EXPECT_EQ(Export().features, 4U);
        EXPECT_EQ(run_.Losses().Line(), again == 0 ? "entities left out: VALVES.polyline 1, VALVES.text 1"
                                                   : "entities left out: VALVES.polyline 2, VALVES.text 2");
        EXPECT_EQ(Query("SELECT \"ID\", \"DEPTH\", \"OWNER\", remark, \"EXTRA\", \"extra1\" FROM \"Valves\""
                        " ORDER BY CAST(\"ID\" AS INTEGER), \"E\""),
                  (Texts{"7|2|new|of the office|NULL|NULL", "8||Größe|of the office|NULL|NULL",
                         "9|3|other|NULL|NULL|NULL", "9|4|the same key|NULL|NULL|NULL", "10|d|o|NULL|e|f"}));
    }
}

TEST_P(FmoExportTest, TablesOfOthersKeepTheirTypes) {
    Sql("CREATE TABLE valves (id INTEGER PRIMARY KEY, e DOUBLE PRECISION, n DOUBLE PRECISION, depth "
        "NUMERIC)");
    Sql("INSERT INTO valves VALUES (7, 1, 1, 1)");
    DefineValves();
    AddValve(5, "7", "2.5", "a");
    AddValve(6, "8", "", "b");
    EXPECT_EQ(Export().features, 2U);
    EXPECT_EQ(Query("SELECT id, depth, \"OWNER\" FROM valves ORDER BY id"), (Texts{"7|2.5|a", "8|NULL|b"}))
        << "OWNER came as a column";
}

TEST_P(FmoExportTest, AFailureLeavesEveryTableAsItWas) {
    Sql("CREATE TABLE valves (id TEXT UNIQUE, e DOUBLE PRECISION, n DOUBLE PRECISION, owner TEXT NOT NULL)");
    Sql("INSERT INTO valves VALUES ('7', 1, 1, 'old')");
    Define("FIRST", "TABLE=first\nEAST=E\nNORTH=N\nKEY=ID\n");
    drawing_.setActiveLayer("FIRST");
    drawing_.addPoint({1, 1, 0});
    DefineValves();
    AddValve(5, "7", "2", "new");
    Add(drawing_.addPoint({6, 2, 0}), {{"HANDLE", "8"}});
    try {
        Export();
        ADD_FAILURE() << "no error";
    } catch (const platform::WriteError& error) {
        EXPECT_NE(std::string(error.what()).find("table Valves, feature 3: "), std::string::npos)
            << error.what();
    }
    EXPECT_EQ(Query("SELECT * FROM valves"), Texts{IsServer() ? "7|1|1|old" : "7|1.0|1.0|old"});
    database::Connection connection(TestConnection());
    EXPECT_FALSE(database::Table::Find(connection, "first"));
}

TEST_P(FmoExportTest, TwoExportsAtOnceBothArrive) {
    auto exportMany = [&](int first) {
        test::TestUi ui;
        config::Installation installation;
        config::Run run(installation, ui);
        installation.Settings() = run_.Settings();
        Drawing drawing;
        for (const char* layer : {first == 0 ? "VALVES" : "WELLS", first == 0 ? "WELLS" : "VALVES"}) {
            drawing.setActiveLayer(layer);
            for (int i = first; i < first + 300; ++i)
                Add(drawing.addPoint({double(i), 2, 0}), {{"HANDLE", std::to_string(i)}});
        }
        std::string path = folder_ / ("many" + std::to_string(first) + ".VDF");
        drawing.saveAs(path);
        exporter::frmFMO(run).Start(path, folder_ / "FMO");
    };
    DefineValves();
    Define("WELLS", "TABLE=wells\nEAST=E\nNORTH=N\nKEY=ID\n");
    for (int round = 0; round < 3; ++round) {
        std::thread one(exportMany, 0), two(exportMany, 200);
        one.join();
        two.join();
        for (const char* table : {"Valves", "wells"})
            EXPECT_EQ(Query("SELECT count(*), count(DISTINCT \"ID\") FROM \"" + std::string(table) + "\""),
                      Texts{"500|500"});
    }
}

/// The stored form of an entity in a table: x and y, the closed flag of lines with at least three vertices,
/// values by name. The handle replaces an empty key.
std::string Kept(Entity entity) {
    std::string text = entity.kindCode() == Kind::Polyline ? "line" : "point";
    bool line = entity.kindCode() == Kind::Polyline;
    std::size_t count = entity.vertexCount();
    auto single = [&](double v) { return line ? double(float(v)) : v; };
    auto same = [&](std::size_t a, std::size_t b) {
        return single(entity.vertex(a).x) == single(entity.vertex(b).x) &&
               single(entity.vertex(a).y) == single(entity.vertex(b).y);
    };
    bool endsMeet = count > 2 && same(0, count - 1);
    bool closed = line && (endsMeet || (entity.isClosed() && count > 1 && !same(0, count - 1)));
    if (endsMeet) --count;
    for (std::size_t i = 0; i < count; ++i)
        text += " " + std::to_string(single(entity.vertex(i).x)) + "," +
                std::to_string(single(entity.vertex(i).y));
    text += closed ? " closed" : "";
    for (const char* name : {"ID", "A", "B"}) {
        auto property = entity.xproperties().find(name);
        text += " " + std::string(property ? property->value() : "");
    }
    return text;
}

TEST_P(FmoExportTest, WhatWasExportedComesBack) {
    std::mt19937 random(17);
    auto number = [&](unsigned below) { return static_cast<int>(random() % below); };
    const Texts values{
        "", "plain", "O'Brien, \"x\"", "Größe Ж 😀", "007", std::string(400, 'y'), "two\r\nlines"};
    Define("POINTS", "TABLE=points\nEAST=E\nNORTH=N\nKEY=ID\n");
    Define("LINES", "TABLE=lines\nKEY=ID\nENBLOB=G\n");
    for (int i = 0; i < 400; ++i) {
        bool line = number(2) == 0;
        drawing_.setActiveLayer(line ? "LINES" : "POINTS");
        auto place = [&] { return Point{number(7000000) / 10.0, number(13000000) / 10.0, number(5) * 1.0}; };
        Entity entity = line ? drawing_.addPolyline() : drawing_.addPoint(place());
        if (line) {
            for (int n = 1 + number(6); n > 0; --n) entity.appendVertex(place());
            if (number(4) == 0) entity.appendVertex(entity.vertex(0));
            entity.setClosed(number(2) == 0 && entity.vertexCount() > 1);
        }
        Add(entity, {{"ID", std::to_string(i)}, {"A", values[number(7)]}, {"B", values[number(7)]}});
    }
    Export();
    Import(folder_ / "FMO/LINES.FMO", "|POINTS.FMO");
    auto sorted = [](Drawing& drawing) {
        Texts texts;
        drawing.forEach([&](Entity entity) { texts.push_back(Kept(entity)); });
        std::ranges::sort(texts);
        return texts;
    };
    Texts before = sorted(drawing_), after = sorted(imported_);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) ASSERT_EQ(after[i], before[i]);
}

VEXLATOR_ON_EACH_DATABASE(FmoExportTest);

/// Exports that create their own definitions and database files.
class DatabaseFileTest : public FmoExportTest {
protected:
    void AddLayers() {
        for (const char* layer : {"VALVES", "PIPES"}) {
            drawing_.setActiveLayer(layer);
            Add(drawing_.addPoint({3, 4, 0}), {{"NAME", "p"}, {"EAST", "east"}});
        }
        Add(drawing_.addPolyline(std::vector<Point>{{1, 1, 0}, {2, 2, 0}}), {{"NAME", "l"}, {"EAST", ""}});
        drawing_.properties().emplace_back("Source", folder_ / "jobs\\smith\\north\\J12.job");
        installation_.Settings().WorkFlowDirectory = folder_ / "jobs";
        drawing_.saveAs(folder_ / "a.VDF");
    }
};

TEST_P(DatabaseFileTest, OneDatabaseForEachJobAndPrefixes) {
    folder_.Write("gv.ini", "[GENERAL]\r\nJobBasedMDB=1\r\nPrefixExport=1\r\n");
    AddLayers();
    exporter::frmFMO(run_).Start(folder_ / "a.VDF", folder_ / "FMO");
    EXPECT_EQ(platform::ListFiles(folder_ / "FMO/J12"),
              (Texts{"J12.MDB", "north_PIPES.FMO", "north_VALVES.FMO"}));
    EXPECT_EQ(run_.ReadIni("DEF", "TABLE", folder_ / "FMO/J12/north_PIPES.FMO"), "north_PIPES");
    Import(folder_ / "FMO/J12/north_VALVES.FMO", "|north_PIPES.FMO");
    ASSERT_EQ(imported_.entityCount(), 3U);
    EXPECT_EQ(TextOf(imported_.entityAt(0)), "VDINSERT NAME=p NAME=p EAST1=3 NORTH=4 EAST=east");
    EXPECT_EQ(imported_.entityAt(1).vertexCount(), 1U) << "a point among lines";
}

TEST_P(DatabaseFileTest, SeveralProgramsMakeOneDatabase) {
    AddLayers();
    std::vector<pid_t> children;
    for (int i = 0; i < 4; ++i) {
        pid_t child = ::fork();
        if (child == 0) {
            try {
                exporter::frmFMO(run_).Start(folder_ / "a.VDF", folder_ / "FMO");
                ::_exit(0);
            } catch (const std::exception& error) {
                std::fprintf(stderr, "%s\n", error.what());
                ::_exit(1);
            }
        }
        children.push_back(child);
    }
    for (pid_t child : children) {
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    Import(folder_ / "FMO/VALVES.FMO", "|PIPES.FMO");
    EXPECT_EQ(imported_.entityCount(), 3U);
}

INSTANTIATE_TEST_SUITE_P(, DatabaseFileTest, testing::Values(test::DatabaseKind::Sqlite),
                         test::DatabaseKindName);

}  // namespace vexlator
