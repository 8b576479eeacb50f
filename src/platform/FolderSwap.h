// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>

/// For the files of this folder only.
namespace vexlator::platform {

/// A new folder beside another one, to take its place in one step. Until then, and when it cannot, nothing of
/// the other changes. The one that has been replaced goes with the object, but what others put into it goes
/// over to the new one. What a killed run leaves beside is an abandoned folder of a temporary name, which
/// RemoveLeftovers() takes away in the same manner.
class FolderSwap {
public:
    /// @param native a folder. It cannot be replaced when it is a link, when it belongs to somebody else or
    /// has access rules beyond its mode, which a new folder would lack.
    explicit FolderSwap(std::string native);
    ~FolderSwap();
    FolderSwap(const FolderSwap&) = delete;
    FolderSwap& operator=(const FolderSwap&) = delete;

    bool IsPossible() const { return descriptor_ >= 0; }
    /// Gives a file of the other folder a name in the new one. False when the file system does not.
    bool Link(const std::string& nativeFile, const std::string& name);
    /// @param replaced names of the files in the other folder that go
    /// @returns false when the file system does not know the step
    bool TakePlace(const std::set<std::string>& replaced);

private:
    bool IsPlain() const;

    std::string native_, beside_;
    int descriptor_ = -1;
};

/// Deletes a folder that was to take another one's place, or that has been replaced. Folders in the former
/// stay, and keep it.
void RemoveSwapFolder(const std::string& native);

}  // namespace vexlator::platform
