#include "writer/replace_file.h"

#include <fstream>
#include <random>

namespace qzDeck {

namespace fs = std::filesystem;

namespace {

bool WriteFile(fs::path const& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    return file.good();
}

} // namespace

std::optional<std::string> ReplaceFile(fs::path const& path, std::string_view text) {
    std::error_code error;
    fs::path const target = fs::weakly_canonical(path, error);
    if (error)
        return error.message();
    fs::file_status const status = fs::status(target, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        return "it is not a file that can be replaced";
    fs::path beside = target;
    beside += "." + std::to_string(std::random_device()()) + ".part";
    if (!WriteFile(beside, text)) {
        fs::remove(beside, error);
        return "cannot write beside it";
    }
    if (fs::exists(status))
        fs::permissions(beside, status.permissions(), error);
    fs::rename(beside, target, error);
    if (!error)
        return std::nullopt;
    std::string const reason = error.message();
    fs::remove(beside, error);
    return reason;
}

} // namespace qzDeck
