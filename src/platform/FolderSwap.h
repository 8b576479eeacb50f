// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>

/// For the files of this folder only.
namespace vexlator::platform {

/// A new folder beside another one, which it replaces in one step. Until then, and on failure, the old folder
/// is unchanged. The destructor deletes the replaced folder, but first moves files that others put into it to
/// the new one. A killed run leaves a folder with a temporary name, which RemoveLeftovers() treats in the
/// same way.
class FolderSwap {
public:
    /// @param native a folder. It cannot be replaced if it is a link, belongs to another user, or has access
    /// rules beyond its mode, which a new folder would lack.
    explicit FolderSwap(std::string native);
    ~FolderSwap();
    FolderSwap(const FolderSwap&) = delete;
    FolderSwap& operator=(const FolderSwap&) = delete;

    bool IsPossible() const { return descriptor_ >= 0; }
    /// Native path of the new folder until it takes its place.
    const std::string& Beside() const { return beside_; }
    /// Gives a file of the other folder a name in the new one. False if the file system cannot do it.
    bool Link(const std::string& nativeFile, const std::string& name);
    /// @param replaced names of the files in the other folder to remove
    /// @returns false if the file system does not support the step
    bool TakePlace(const std::set<std::string>& replaced);

private:
    bool IsPlain() const;

    std::string native_, beside_;
    int descriptor_ = -1;
};

/// Deletes a folder that was meant to replace another, with its contents, or one that was replaced:
/// sub-folders that others have put into that stay, and keep it.
void RemoveSwapFolder(const std::string& native);

}  // namespace vexlator::platform
