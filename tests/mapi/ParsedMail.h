#pragma once

#include "fakes/TempFolder.h"
#include "process/RunProgram.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A message as another MIME parser reads it: the files that support/parse_mail.py writes.
class ParsedMail {
  public:
    explicit ParsedMail(const std::string& message) {
        temp_.write("message", message);
        const ProgramEnd end = runProgram(
            "/usr/bin/python3",
            {TURNPOST_TESTS "/support/parse_mail.py", temp_.path("message"), temp_.path("parsed")},
            "", std::chrono::seconds(20));
        EXPECT_TRUE(end.kind == ProgramEnd::Kind::Exited && end.number == 0) << end.errorText;
    }

    std::string operator[](const std::string& name) const { return temp_.read("parsed/" + name); }

  private:
    TempFolder temp_;
};

} // namespace turnpost
