// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "raster/Gdal.h"

#include "platform/Paths.h"
#include "platform/Signals.h"

#include <algorithm>
#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <cstdint>
#include <exception>
#include <regex>
#include <utility>

namespace vexlator::raster {

namespace {

/// GDAL's messages since the last query. GDAL has one handler per process.
struct Reports {
    std::string error;
    bool endsEarly = false;
};

Reports& Reported() {
    static Reports reports;
    return reports;
}

/// Some messages begin with a place in GDAL's own source, as in "ogrdxflayer.cpp, 2061: error at line 8".
std::string WithoutSourcePlace(const std::string& line) {
    static const std::regex place(R"(^\S+\.(cpp|c|h), ?\d+: )", std::regex::optimize);
    return std::regex_replace(line, place, "");
}

void CPL_STDCALL Collect(CPLErr kind, CPLErrorNum, const char* text) {
    std::string line = text;
    // The reason of a refused connection stands in the next line.
    constexpr std::string_view refused = "PQconnectdb failed.\n";
    if (line.starts_with(refused)) line.erase(0, refused.size());
    line = WithoutSourcePlace(line.substr(0, line.find_first_of("\r\n")));
    if (line.find("remature end") != std::string::npos) Reported() = {"the data is truncated", true};
    if (kind >= CE_Failure && Reported().error.empty()) Reported().error = line;
}

/// JPEG, and what scans and aerial photographs come in.
constexpr const char* imageDrivers[] = {"JPEG",        "PNG", "BMP",  "GIF",  "GTiff",
                                        "JP2OpenJPEG", "ECW", "WEBP", nullptr};

// --- A GDAL file system that writes into an output file of ours.

constexpr const char* outputPrefix = "/vexlator-output/";

struct OutputSlot {
    platform::OutputFile* file = nullptr;
    std::uint64_t begin = 0;  ///< what the file held before
    std::exception_ptr failure;

    std::uint64_t Written() const { return file->Size() - begin; }
};

OutputSlot& Slot() {
    static OutputSlot slot;
    return slot;
}

/// GDAL first checks whether there is a file to delete.
void* OpenOutput(void*, const char*, const char* access) {
    return access[0] == 'w' && Slot().file ? &Slot() : nullptr;
}

vsi_l_offset TellOutput(void*) {
    return Slot().Written();
}

/// JPEG writers only move forward.
int SeekOutput(void*, vsi_l_offset offset, int whence) {
    bool stays = (whence == SEEK_END && offset == 0) || (whence == SEEK_CUR && offset == 0) ||
                 (whence == SEEK_SET && offset == Slot().Written());
    return stays ? 0 : -1;
}

size_t WriteOutput(void*, const void* bytes, size_t size, size_t count) {
    try {
        Slot().file->Write(std::string_view(static_cast<const char*>(bytes), size * count));
        return count;
    } catch (...) {
        // Exceptions must not pass through GDAL.
        Slot().failure = std::current_exception();
        return 0;
    }
}

/// Also if GDAL wants to flush: the file does that itself.
int CloseOutput(void*) {
    return 0;
}

void InstallOutputs() {
    VSIFilesystemPluginCallbacksStruct* calls = VSIAllocFilesystemPluginCallbacksStruct();
    calls->open = OpenOutput;
    calls->tell = TellOutput;
    calls->seek = SeekOutput;
    calls->write = WriteOutput;
    calls->flush = CloseOutput;
    calls->close = CloseOutput;
    VSIInstallPluginHandler(outputPrefix, calls);
    VSIFreeFilesystemPluginCallbacksStruct(calls);
}

}  // namespace

void StartGdal() {
    constexpr GIntBig cacheBytes = GIntBig{128} << 20;
    CPLSetConfigOption("GDAL_PAM_ENABLED", "NO");
    CPLSetConfigOption("GDAL_DISABLE_READDIR_ON_OPEN", "EMPTY_DIR");
    CPLSetConfigOption("GDAL_OPEN_AFTER_COPY", "NO");
    CPLSetConfigOption("GDAL_ALLOW_LARGE_LIBJPEG_MEM_ALLOC", "YES");  // Picture has looked before
    CPLSetErrorHandler(Collect);
    GDALAllRegister();
    GDALSetCacheMax64(cacheBytes);
    InstallOutputs();
}

std::string TakeReason() {
    std::string reason = std::exchange(Reported(), {}).error;
    return reason.empty() ? "not readable" : reason;
}

void RequireRead(bool ok, const std::string& file) {
    platform::ThrowIfStopped();
    if (ok && !Reported().endsEarly) return;
    std::string name = platform::NativePath(file), reason = TakeReason();
    if (reason.starts_with(name + ": ")) reason.erase(0, name.size() + 2);
    throw platform::ReadError(name, "", reason);
}

void RequireNoError(const std::string& file) {
    RequireRead(Reported().error.empty(), file);
}

Dataset Open(const std::string& path, unsigned flags, const char* const* drivers, const char* otherwise) {
    std::string native = platform::FindExisting(path);
    if (native.empty()) throw platform::ReadError(platform::NativePath(path), "", "no such file");
    TakeReason();
    Dataset dataset(GDALOpenEx(native.c_str(), flags | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR, drivers,
                               nullptr, nullptr));
    if (!dataset && platform::SizeOfFile(path) == 0)
        throw platform::ReadError(native, "", "the file is empty");
    if (!dataset && Reported().error.find("not recognized") != std::string::npos)
        throw platform::ReadError(native, "", otherwise);
    RequireRead(dataset != nullptr, path);
    return dataset;
}

Dataset OpenImage(const std::string& path) {
    return Open(path, GDAL_OF_RASTER, imageDrivers,
                "not an image of a kind that can be read; save it as JPEG, PNG or TIFF");
}

ScratchImage::ScratchImage(const std::string& besides, int width, int height, int channels) : file_(besides) {
    char** options = nullptr;
    for (const char* option : {"TILED=YES", "INTERLEAVE=PIXEL", "BIGTIFF=IF_SAFER", "SPARSE_OK=TRUE"})
        options = CSLAddString(options, option);
    dataset_.reset(GDALCreate(GDALGetDriverByName("GTiff"), file_.TemporaryName().c_str(), width, height,
                              channels, GDT_Byte, options));
    CSLDestroy(options);
    RequireWritten(dataset_ != nullptr);
}

void ScratchImage::RequireWritten(bool ok) const {
    platform::ThrowIfStopped();
    if (!ok) throw platform::WriteError(file_.TemporaryName(), TakeReason());
}

/// Blocks that left GDAL's cache earlier failed without a visible result; only the report shows it.
void ScratchImage::Finish() const {
    GDALFlushCache(dataset_.get());
    RequireWritten(Reported().error.empty());
}

void WriteJpeg(GDALDatasetH source, platform::OutputFile& target) {
    constexpr const char* quality = "QUALITY=90";
    char** options = CSLAddString(nullptr, quality);
    Slot() = {&target, target.Size(), nullptr};
    auto goesOn = [](double, const char*, void*) -> int {
        try {
            platform::ThrowIfStopped();
            return !Reported().endsEarly;
        } catch (const platform::Stopped&) {
            return 0;
        }
    };
    TakeReason();
    Dataset written(GDALCreateCopy(GDALGetDriverByName("JPEG"),
                                   (outputPrefix + std::string("image.jpg")).c_str(), source, 0, options,
                                   goesOn, nullptr));
    CSLDestroy(options);
    bool ok = written != nullptr;
    written.reset();
    if (std::exception_ptr failure = std::exchange(Slot(), {}).failure) std::rethrow_exception(failure);
    platform::ThrowIfStopped();
    // What the target refused has been thrown.
    if (!ok || Reported().endsEarly) throw platform::ReadError("", "", TakeReason());
}

}  // namespace vexlator::raster
