#include "storage/OwnFile.h"

#include "fakes/TempFolder.h"
#include "files/FileError.h"
#include "storage/GameDetailsFile.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(OwnFile, OfOneMebibyteIsReadAndNoLarger) {
    const TempFolder temp;
    const std::string path = temp.path("GAME.NTP");
    MessageTemplate message;
    const size_t room = (1U << 20) - printGameDetails({}, message).size();
    message.MessageBody.assign(room, 'x');
    writeGameDetails(path, {}, message);
    const std::string largest = temp.read("GAME.NTP");
    EXPECT_EQ(largest.size(), 1U << 20);
    EXPECT_EQ(readGameDetails(path).content.message.MessageBody.size(), room);
    message.MessageBody += 'x';
    EXPECT_THROW(writeGameDetails(path, {}, message), FileError);
    EXPECT_TRUE(temp.read("GAME.NTP") == largest);
    temp.write("GAME.NTP", largest + '\n');
    EXPECT_EQ(readGameDetails(path).damage, Refusal{"It is larger than 1 MiB"});
}

} // namespace turnpost
