#include "text/Path.h"

namespace turnpost {

std::string nameOfPath(std::string_view path) {
    const size_t last = path.find_last_of("\\/");
    return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string folderOfPath(std::string_view path) {
    const size_t last = path.find_last_of("\\/");
    if (last == std::string_view::npos) {
        return {};
    }
    const bool root = last == 0 || (last == 2 && path[1] == ':');
    return std::string(path.substr(0, root ? last + 1 : last));
}

std::string withSeparator(std::string_view folder) {
    std::string result(folder);
    if (!result.empty() && !isSeparator(result.back())) {
        result += pathSeparator;
    }
    return result;
}

std::string joinPath(std::string_view folder, std::string_view name) {
    return withSeparator(folder).append(name);
}

} // namespace turnpost
