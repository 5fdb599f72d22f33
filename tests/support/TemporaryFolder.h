#pragma once

#include <filesystem>
#include <string>

/// A folder of its own for the files of a test, gone with it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        for (unsigned int k = 0; m_path.empty(); ++k) {
            auto const path = std::filesystem::temp_directory_path() / ("qz_tests_" + std::to_string(k));
            std::error_code error;
            if (std::filesystem::create_directory(path, error))
                m_path = path;
        }
    }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }

    std::filesystem::path const& Path() const { return m_path; }
    std::string GetFile(char const* name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};
