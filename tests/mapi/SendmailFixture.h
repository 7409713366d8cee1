#pragma once

#include "fakes/TempFolder.h"
#include "mapi/SendmailMessages.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A host, the session, and a mail program of the test's own in the folder `bin`.
class SendmailFixture : public testing::Test {
  protected:
    SendmailFixture() {
        temp.makeFolder("bin");
        settings.HostName = "Hänsel Host";
        settings.HostEmail = "host@example.org";
    }

    /// The commands run in the temporary folder.
    void install(const std::string& commands) const {
        const std::string program = temp.path("bin/sendmail");
        temp.write("bin/sendmail", "#!/bin/sh\ncd '" + temp.path() + "' || exit\n" + commands);
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }

    /// A program that takes every message and keeps its arguments and its bytes.
    void installRecorder() const { install("printf '%s\\n' \"$@\" >arguments\ncat >message\n"); }

    void compose(const std::vector<std::string>& files = {}) {
        session.SignOn();
        mail.SessionID(session.SessionID());
        mail.Compose();
        mail.MsgIndex(-1);
        mail.MsgSubject("Turn 24");
        mail.MsgNoteText("Hello Zoë\r\n\r\n ");
        addRecipient(0, "zoe@example.org", mainRecipient);
        addRecipient(1, "second@example.org", copyRecipient);
        for (int j = 0; j < static_cast<int>(files.size()); ++j) {
            mail.AttachmentIndex(j);
            mail.AttachmentPosition(j);
            mail.AttachmentType(dataFile);
            mail.AttachmentPathName(temp.path(files[static_cast<size_t>(j)]));
        }
    }

    void addRecipient(int index, const std::string& address, int type) {
        mail.RecipIndex(index);
        mail.RecipDisplayName("Zoë Zimmer");
        mail.RecipAddress(address);
        mail.RecipType(type);
    }

    TempFolder temp;
    Settings settings;
    SendmailSession session{{temp.path("bin")}};
    SendmailMessages mail{settings, session, std::chrono::seconds(20)};
};

} // namespace turnpost
