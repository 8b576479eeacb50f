// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"
#include "export/fmo/frmFMO.h"
#include "export/fmo/frmMDB.h"
#include "import/fmo/frmFromFMO.h"
#include "platform/Files.h"
#include "support/TestDatabase.h"
#include "support/TestUi.h"
#include "util/Paths.h"

#include <filesystem>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::test {

using Texts = std::vector<std::string>;
using Attributes = std::initializer_list<std::pair<const char*, std::string>>;

/// An installation with a run in it whose definitions name one database.
class FmoOffice : public OnEachDatabase {
protected:
    void SetUp() override {
        OnEachDatabase::SetUp();
        for (const char* name : {"ATP", "FMO", "Symbols", "out"})
            std::filesystem::create_directories(folder_ / name);
        config::SharedSettings& settings = installation_.Settings();
        settings.IniFilePath = folder_.Write("gv.ini", "");
        settings.ConfigFolder = settings.ProgramFolder = folder_.Path();
        settings.ATPDirectory = folder_ / "ATP";
        settings.FMODirectory = folder_ / "FMO";
        settings.SymbolsDirectory = folder_ / "Symbols";
        drawing::Drawing symbol;
        symbol.addCircle({}, 1);
        symbol.saveAs(folder_ / "Symbols/DEFAULT.VDF");
    }
    bool IsServer() const { return GetParam() == DatabaseKind::PostgreSql; }
    /// The keys of [DEF] for the test's database.
    std::string DatabaseKeys() const {
        if (!IsServer()) return "MDB=" + (folder_ / "test.mdb") + "\n";
        database::ConnectionString server(OnEachDatabase::ConnectionString());
        auto get = [&](const char* key) { return std::string(server.Get(key)); };
        return "DRIVER=" + get("Driver") + "\nSERVER=" + get("Server") + ";Port=" + get("Port") +
               "\nMDB=" + get("Database") + "\nUSER=" + get("Uid") + "\nPASSWORD=" + get("Pwd") + "\n";
    }
    std::string Define(const std::string& code, const std::string& keys) {
        return folder_.Write("FMO/" + code + ".FMO", "[DEF]\n" + DatabaseKeys() + keys);
    }
    std::string TestConnection() const {
        return IsServer() ? OnEachDatabase::ConnectionString()
                          : database::SqliteConnectionString(folder_ / "test.mdb");
    }
    void Sql(const std::string& statement) { database::Connection(TestConnection()).Execute(statement); }
    Texts Query(const std::string& query) const {
        database::Connection connection(TestConnection());
        database::Statement rows(connection, query);
        rows.Execute();
        Texts texts;
        while (rows.Next()) {
            texts.emplace_back();
            for (std::size_t i = 0; i < rows.ColumnCount(); ++i)
                texts.back() += (i > 0 ? "|" : "") + std::string(rows.IsNull(i) ? "NULL" : rows.Text(i));
        }
        return texts;
    }
    drawing::Entity Add(drawing::Entity entity, Attributes attributes) {
        for (const auto& [name, value] : attributes) entity.xproperties().add(name, value);
        return entity;
    }
    config::Outcome Export() {
        drawing_.saveAs(folder_ / "a.VDF");
        return exporter::frmFMO(run_).Start(folder_ / "a.VDF", folder_ / "FMO");
    }
    config::Outcome Import(const std::string& path, const std::string& list = "") {
        config::Outcome outcome = importer::frmFromFMO(run_).Start(path, folder_ / "out", list);
        imported_.open(folder_ / "out/" + std::string(util::BaseNameOf(path)) + ".VDF");
        return outcome;
    }
    static std::string TextOf(drawing::Entity entity) {
        std::string text(entity.kind());
        for (std::size_t i = 0; i < entity.xproperties().count(); ++i)
            text += " " + std::string(entity.xproperties().name(i)) + "=" +
                    std::string(entity.xproperties().item(i).value());
        return text;
    }

    TestUi ui_;
    config::Installation installation_;
    config::Run run_{installation_, ui_};
    drawing::Drawing drawing_, imported_;
};

}  // namespace vexlator::test
