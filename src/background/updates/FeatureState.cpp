// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/updates/FeatureState.h"

#include "background/updates/Sqlite.h"
#include "background/updates/StoredFeature.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Numbers.h"

#include <algorithm>
#include <optional>
#include <xxhash.h>

namespace vexlator::background {

namespace {

using formats::GmlFeature;

constexpr std::int64_t schemaVersion = 1;

constexpr const char* schema =
    "CREATE TABLE feature("
    "id INTEGER PRIMARY KEY, toid TEXT UNIQUE, version INTEGER NOT NULL, content BLOB NOT NULL);"
    "CREATE TABLE source(hash TEXT PRIMARY KEY, name TEXT NOT NULL);"
    "CREATE TABLE package(path TEXT NOT NULL);"
    "PRAGMA user_version = 1;";

const std::string* ValueOf(const GmlFeature& feature, std::string_view name) {
    auto found = std::ranges::find_if(feature.properties, [&](const formats::GmlProperty& property) {
        return platform::SameNoCase(property.name, name);
    });
    return found == feature.properties.end() ? nullptr : &found->value;
}

constexpr std::string_view toidPrefix = "osgb";

bool HasToidPrefix(std::string_view text) {
    return platform::SameNoCase(text.substr(0, toidPrefix.size()), toidPrefix);
}

/// As in osgb1000000200000001; leading zeros do not count.
std::string DigitsOf(std::string_view toid) {
    if (HasToidPrefix(toid)) toid.remove_prefix(toidPrefix.size());
    std::size_t first = toid.find_first_not_of('0');
    bool hasOnlyDigits = toid.find_first_not_of("0123456789") == std::string_view::npos;
    return hasOnlyDigits && first != std::string_view::npos ? std::string(toid.substr(first)) : "";
}

std::int64_t NumberIn(Sqlite& database, const char* query) {
    SqliteStatement statement(database, query);
    return statement.Step() ? statement.Number(0) : 0;
}

/// Begins the transaction that Commit() ends.
void Begin(Sqlite& database) {
    database.Execute("PRAGMA cache_size = -65536; BEGIN IMMEDIATE");
    std::int64_t version = NumberIn(database, "PRAGMA user_version");
    if (version == schemaVersion) return;
    if (version != 0 || NumberIn(database, "SELECT count(*) FROM sqlite_master") != 0)
        database.Fail("not a state of topography that this version knows");
    database.Execute(schema);
}

std::int64_t VersionOf(const GmlFeature& feature) {
    const std::string* version = ValueOf(feature, "version");
    return version ? util::IntegerOf(*version) : 0;
}

}  // namespace

std::string ToidOf(const GmlFeature& feature) {
    if (const std::string* toid = ValueOf(feature, "TOID")) return DigitsOf(*toid);
    return HasToidPrefix(feature.identifier) ? DigitsOf(feature.identifier) : "";
}

bool IsDeparted(const GmlFeature& feature) {
    return platform::SameNoCase(feature.type, "DepartedFeature");
}

struct FeatureState::Impl {
    Sqlite database;
    std::optional<SqliteStatement> put, remove;
    FeatureBytes bytes;

    explicit Impl(const std::string& native) : database(native) {
        // What goes with the object need not outlast a power failure.
        if (native.empty()) database.Execute("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF");
        Begin(database);
        put.emplace(database,
                    "INSERT INTO feature(toid, version, content) VALUES(?, ?, ?) ON CONFLICT(toid) DO UPDATE "
                    "SET version = excluded.version, content = excluded.content "
                    "WHERE excluded.version > feature.version");
        remove.emplace(database, "DELETE FROM feature WHERE toid = ?");
    }

    void Visit(const char* query, std::size_t& bytesRead,
               const std::function<void(GmlFeature&, std::size_t)>& visit) {
        SqliteStatement features(database, query);
        GmlFeature feature;
        while (features.Step()) {
            std::span<const std::byte> content = features.Bytes(1);
            if (!ReadFeatureBytes(content, feature))
                database.Fail("feature " + std::string(features.Text(0)) + " is damaged");
            visit(feature, bytesRead += content.size());
        }
    }
};

FeatureState::FeatureState(std::string_view path)
    : impl_(std::make_unique<Impl>(path.empty() ? "" : platform::NativePath(path))) {}

FeatureState::~FeatureState() = default;

std::string FeatureState::Package() const {
    SqliteStatement query(impl_->database, "SELECT path FROM package");
    return query.Step() ? std::string(query.Text(0)) : "";
}

void FeatureState::SetPackage(std::string_view path) {
    if (Package() == path) return;
    impl_->database.Execute("DELETE FROM package");
    SqliteStatement(impl_->database, "INSERT INTO package(path) VALUES(?)").Bind(1, path).Run();
}

bool FeatureState::HoldsSources() const {
    return NumberIn(impl_->database, "SELECT count(*) FROM source") > 0;
}

void FeatureState::Clear() {
    impl_->database.Execute("DELETE FROM feature; DELETE FROM source");
}

bool FeatureState::TakeSource(std::string_view name, std::span<const std::byte> content) {
    XXH128_hash_t hash = XXH3_128bits(content.data(), content.size());
    XXH128_canonical_t canonical;
    XXH128_canonicalFromHash(&canonical, hash);
    SqliteStatement note(impl_->database, "INSERT OR IGNORE INTO source(hash, name) VALUES(hex(?), ?)");
    note.Bind(1, std::as_bytes(std::span(canonical.digest))).Bind(2, name).Run();
    return impl_->database.Changes() > 0;
}

void FeatureState::Apply(const GmlFeature& feature, UpdateCounts& counts) {
    std::string toid = ToidOf(feature);
    if (IsDeparted(feature)) {
        impl_->remove->Bind(1, toid).Run();
        counts.departed += static_cast<std::uint64_t>(impl_->database.Changes());
        return;
    }
    SqliteStatement& put = *impl_->put;
    if (toid.empty())
        put.BindNull(1);
    else
        put.Bind(1, toid);
    put.Bind(2, VersionOf(feature)).Bind(3, impl_->bytes.Of(feature)).Run();
    ++(impl_->database.Changes() > 0 ? counts.taken : counts.notNewer);
}

void FeatureState::ForEachFeature(
    const std::function<void(GmlFeature& feature, std::size_t bytesRead)>& visit) {
    std::size_t bytesRead = 0;
    impl_->Visit("SELECT toid, content FROM feature WHERE toid NOT NULL ORDER BY toid", bytesRead, visit);
    impl_->Visit("SELECT id, content FROM feature WHERE toid IS NULL ORDER BY id", bytesRead, visit);
}

void FeatureState::Commit() {
    impl_->database.Execute("COMMIT");
}

}  // namespace vexlator::background
