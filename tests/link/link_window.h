// The part of the main window that transfers the block, wired as the main window wires it.
#pragma once

#include <string>
#include <vector>

#include "block/parse.h"
#include "link/download.h"
#include "link/upload.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/fake_rich_text.h"

namespace varno {

// A block of two tickets, 212 bound to Print and 640 to none.
inline const std::string& TwoTickets() {
    static const std::string image = SealTicketBuffer(
        "08D4004100421000"
        "0A8000431000"
        "8000"
        "00D4000000000000");
    return image;
}

inline const std::string& Fill() {
    static const std::string fill(362, 'F');
    return fill;
}

using Events = std::vector<CommandEvent>;

struct LinkWindow {
    explicit LinkWindow(SerialControl& serial) : MSComm1(serial) {
        Timer1.OnTimer = [this] { transfer.Timer1_Timer(); };
        MSComm1.OnReceive = [this] { upload.MSComm1_OnComm(); };
    }

    void Load(const std::string& image) {
        block.TicketBuffer = image;
        TicketList.Clear();
        ParseTicketBuffer(block, TicketList, Message);
    }

    void ExpectWarning(Answer answer) {
        platform.dialogs.Expect(
            {"Items in ticket block will be lost.", "Warning", Buttons::OkCancel, Icon::Critical},
            answer);
    }
    void ExpectConfirmation(Answer answer) {
        platform.dialogs.Expect({"Start TICKET BUFFER CAPTURING in Varno (parameter 78),\r\n"
                                 "then click OK button.",
                                 "", Buttons::OkCancel, Icon::Exclamation},
                                answer);
    }
    SerialControl& MSComm1;
    FakePlatform platform;
    FakeLabel Message;
    FakeTimer Timer1;
    FakeListBox TicketList;
    FakeRichTextBox RichText;
    TicketBlock block;
    Events log;  // announcements, in order
    Announce announce = [this](CommandEvent event) { log.push_back(event); };

    Transfer transfer{MSComm1, Message, Timer1, announce};
    Upload upload{{MSComm1, Message, Timer1, TicketList, RichText},
                  platform.Ask(),
                  block,
                  transfer,
                  announce};
    Download download{{Message, TicketList}, platform, block, transfer, announce};
};

}  // namespace varno
