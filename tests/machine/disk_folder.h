// SPDX-License-Identifier: MIT
#pragma once

#include "machine/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace tarvelint::test {

/// A folder of its own for each test, on the real disk.
class DiskFolder : public testing::Test {
protected:
    using Names = std::vector<std::string>;

    void SetUp() override
    {
        std::string pattern = std::filesystem::temp_directory_path() / "tarvelint-files-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        m_folder = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    [[nodiscard]] const std::string& folder() const { return m_folder; }
    [[nodiscard]] std::string path(const std::string& name) const { return m_folder + "/" + name; }
    static void put(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }
    static std::string get(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Names in the folder, or in one within; leftovers of a save would stand here.
    [[nodiscard]] Names names(const std::string& within = "") const
    {
        Names found;
        for (const auto& entry : std::filesystem::directory_iterator(path(within)))
            found.push_back(entry.path().filename().native());
        std::sort(found.begin(), found.end());
        return found;
    }
    [[nodiscard]] static std::optional<FileFailure> failureToCreate(Files& files, const std::string& path)
    {
        try {
            files.createSafely(path)->commit();
        } catch (const FileFailure& failure) {
            return failure;
        }
        return std::nullopt;
    }
    [[nodiscard]] static std::optional<FileFailure> failureToRead(Files& files, const std::string& path)
    {
        try {
            static_cast<void>(files.openForReading(path));
        } catch (const FileFailure& failure) {
            return failure;
        }
        return std::nullopt;
    }

    DiskFiles files;

private:
    std::string m_folder;
};

} // namespace tarvelint::test
