#include "dialogs/FilePicker.h"

#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(FilePicker, OpensInTheGamesFolderAsLongAsThereIsOne) {
    const TempFolder temp;
    EXPECT_EQ(pickerStartFolder(withSeparator(temp.path()), "/p"), withSeparator(temp.path()));
    EXPECT_EQ(pickerStartFolder("", "/program"), "/program");
    EXPECT_EQ(pickerStartFolder(temp.path("gone/"), "/program"), "/program");
}

} // namespace turnpost
