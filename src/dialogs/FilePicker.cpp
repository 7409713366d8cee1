#include "dialogs/FilePicker.h"

#include "files/Files.h"
#include "text/Path.h"

namespace turnpost {

bool offersDefaultGame(const FilePicker& picker) {
    return picker.PickerPattern == gameDetailsPattern;
}

std::string pickedPath(const FilePicker& picker) {
    return joinPath(picker.PickedFolder, picker.PickedFile);
}

std::string pickerStartFolder(const std::string& gamePath, const std::string& programFolder) {
    const auto found = isAbsolutePath(gamePath) ? findPath(gamePath) : std::nullopt;
    return found.value_or(programFolder);
}

} // namespace turnpost
