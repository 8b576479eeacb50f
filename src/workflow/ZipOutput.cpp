// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "workflow/ZipOutput.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "workflow/Zip.h"

#include <algorithm>
#include <cerrno>
#include <exception>

namespace vexlator::workflow {

namespace {

constexpr zip_int64_t wholeFile = -1;  ///< a length, in libzip's type

/// The target of libzip: an output file. libzip goes back to complete the headers of an entry, so the target
/// keeps its own position.
class Target {
public:
    explicit Target(std::string_view path) : file_(path) {}

    /// libzip's callback. C code calls it, so exceptions must not leave it. The first one is kept for
    /// Commit().
    static zip_int64_t Handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command) {
        auto& target = *static_cast<Target*>(self);
        try {
            return target.Do(data, length, command);
        } catch (...) {
            target.failure_ = std::current_exception();
            zip_error_set(&target.error_, ZIP_ER_WRITE, EIO);
            return -1;
        }
    }
    platform::OutputFile& File() { return file_; }
    const std::exception_ptr& Failure() const { return failure_; }

private:
    zip_int64_t Do(void* data, zip_uint64_t length, zip_source_cmd_t command);
    void Write(std::string_view bytes);

    platform::OutputFile file_;
    std::uint64_t position_ = 0;
    zip_error_t error_{};
    std::exception_ptr failure_;
};

zip_int64_t Target::Do(void* data, zip_uint64_t length, zip_source_cmd_t command) {
    switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            // An archive has to be readable too, but nothing is read from one that starts empty.
            return ZIP_SOURCE_SUPPORTS_WRITABLE;
        case ZIP_SOURCE_STAT:
            zip_error_set(&error_, ZIP_ER_READ, ENOENT);
            return -1;
        case ZIP_SOURCE_WRITE:
            Write({static_cast<const char*>(data), length});
            return static_cast<zip_int64_t>(length);
        case ZIP_SOURCE_SEEK_WRITE: {
            zip_int64_t offset =
                zip_source_seek_compute_offset(position_, file_.Size(), data, length, &error_);
            if (offset < 0) return -1;
            position_ = static_cast<std::uint64_t>(offset);
            return 0;
        }
        case ZIP_SOURCE_TELL_WRITE:
            return static_cast<zip_int64_t>(position_);
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&error_, data, length);
        case ZIP_SOURCE_BEGIN_WRITE:
        case ZIP_SOURCE_COMMIT_WRITE:
        case ZIP_SOURCE_ROLLBACK_WRITE:
        case ZIP_SOURCE_FREE:
            return 0;  // ZipOutput does this with the file
        default:
            zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
            return -1;
    }
}

void Target::Write(std::string_view bytes) {
    std::uint64_t old = std::min<std::uint64_t>(file_.Size() - position_, bytes.size());
    if (old > 0) file_.WriteAt(position_, bytes.substr(0, old));
    file_.Write(bytes.substr(old));
    position_ += bytes.size();
}

}  // namespace

struct ZipOutput::Impl {
    explicit Impl(std::string_view path) : target(path) {}
    ~Impl() {
        if (archive) zip_discard(archive);
    }
    [[noreturn]] void Fail(const std::string& reason) {
        throw platform::WriteError(target.File().Name(), reason);
    }

    Target target;
    zip_t* archive = nullptr;
};

ZipOutput::ZipOutput(std::string_view path) : impl_(std::make_unique<Impl>(path)) {
    zip_error_t error{};
    zip_source_t* source = zip_source_function_create(Target::Handle, &impl_->target, &error);
    if (!source) impl_->Fail(zip_error_strerror(&error));
    impl_->archive = zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (impl_->archive) return;
    zip_source_free(source);
    impl_->Fail(zip_error_strerror(&error));
}

ZipOutput::~ZipOutput() = default;

void ZipOutput::Add(const std::string& entry, const std::string& file) {
    // libzip opens it late and does not say which one failed.
    std::string native = platform::MappedFile(file).Name();
    zip_source_t* source = zip_source_file(impl_->archive, native.c_str(), 0, wholeFile);
    if (source && zip_file_add(impl_->archive, entry.c_str(), source, ZIP_FL_ENC_UTF_8) >= 0) return;
    zip_source_free(source);
    impl_->Fail(entry + ": " + zip_strerror(impl_->archive));
}

void ZipOutput::Commit() {
    if (zip_close(impl_->archive) != 0) {
        if (impl_->target.Failure()) std::rethrow_exception(impl_->target.Failure());
        impl_->Fail(zip_strerror(impl_->archive));
    }
    impl_->archive = nullptr;
    impl_->target.File().Commit();
}

}  // namespace vexlator::workflow
