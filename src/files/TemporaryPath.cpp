#include "files/TemporaryPath.h"

#include "text/Path.h"

#include <random>

namespace turnpost {

std::string temporaryPathBeside(const std::string& path) {
    std::random_device random;
    std::string name = ".turnpost-";
    for (int i = 0; i < 4; ++i) {
        name += std::to_string(random());
    }
    return joinPath(folderOfPath(path), name + ".tmp");
}

} // namespace turnpost
