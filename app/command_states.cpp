#include "app/command_states.h"

#include <array>

namespace varno {
namespace {

enum class NewState {
    Enabled,
    Disabled,
    Visible,
    Invisible,
    Rows,             // enabled exactly when the list holds a row
    EditorText,       // enabled exactly when the editor holds text
    RowsAndRetrieve,  // enabled exactly when the list holds a row and Retrieve is enabled
    AsTransmit,       // enabled exactly when Transmit is
};

struct Rule {
    CommandEvent event;
    std::string_view command;
    NewState state;
};

using enum CommandEvent;

constexpr std::array Rules{
    Rule{UploadStarted, "Abort", NewState::Visible},
    Rule{UploadStarted, "Retrieve", NewState::Disabled},
    Rule{UploadStarted, "Transmit", NewState::Disabled},
    Rule{UploadStarted, "UploadButton", NewState::Disabled},
    Rule{UploadStarted, "DownloadButton", NewState::Disabled},
    Rule{UploadStarted, "Serial", NewState::Disabled},

    Rule{ImageBegins, "EditButton", NewState::Disabled},

    Rule{UploadEnded, "Transmit", NewState::Rows},
    Rule{UploadEnded, "DownloadButton", NewState::Rows},

    Rule{TransferEnded, "Retrieve", NewState::Enabled},
    Rule{TransferEnded, "Transmit", NewState::Rows},
    Rule{TransferEnded, "UploadButton", NewState::Enabled},
    Rule{TransferEnded, "DownloadButton", NewState::Rows},
    Rule{TransferEnded, "Serial", NewState::Enabled},
    Rule{TransferEnded, "Abort", NewState::Invisible},

    Rule{DownloadStarted, "Abort", NewState::Visible},

    Rule{VarnoMenuOpens, "Transmit", NewState::RowsAndRetrieve},
    Rule{VarnoMenuOpens, "DownloadButton", NewState::AsTransmit},

    Rule{FileMenuOpens, "SaveList", NewState::Rows},

    Rule{BlockOpened, "DownloadButton", NewState::Rows},
    Rule{PutEnded, "DownloadButton", NewState::Rows},
    Rule{TicketDeleted, "DownloadButton", NewState::Rows},

    Rule{NumberChanged, "PutButton", NewState::EditorText},
    Rule{NumberChanged, "DownloadButton", NewState::Rows},

    Rule{ListSelected, "PutButton", NewState::Disabled},
    Rule{ListSelected, "EditButton", NewState::Enabled},
    Rule{ListSelected, "KeyAssignment(0)", NewState::Enabled},
    Rule{ListSelected, "KeyAssignment(1)", NewState::Enabled},
    Rule{ListSelected, "KeyAssignment(2)", NewState::Enabled},
    Rule{ListSelected, "KeyAssignment(3)", NewState::Enabled},
    Rule{ListSelected, "DeleteButton", NewState::Enabled},
    Rule{ListSelected, "SaveList", NewState::Enabled},
    Rule{ListSelected, "DownloadButton", NewState::Rows},

    Rule{EditorChanged, "SaveTicket", NewState::EditorText},
    Rule{EditorChanged, "SaveTicketAs", NewState::EditorText},
    Rule{EditorChanged, "PutButton", NewState::EditorText},

    Rule{EditorFocused, "EditButton", NewState::Disabled},
    Rule{EditorFocused, "DeleteButton", NewState::Disabled},
    Rule{EditorFocused, "KeyAssignment(0)", NewState::Disabled},
    Rule{EditorFocused, "KeyAssignment(1)", NewState::Disabled},
    Rule{EditorFocused, "KeyAssignment(2)", NewState::Disabled},
    Rule{EditorFocused, "KeyAssignment(3)", NewState::Disabled},
};

}  // namespace

CommandStates::CommandStates(Window& window)
    : window_(window),
      ticketList_(window.Get<ListBox>("TicketList")),
      richText_(window.Get<RichTextBox>("RichText")) {}

void CommandStates::On(CommandEvent event) {
    const auto enabled = [this](std::string_view name) {
        return window_.Get<Command>(name).Enabled();
    };
    const bool rows = ticketList_.ListCount() > 0;
    for (const Rule& rule : Rules) {
        if (rule.event != event) {
            continue;
        }
        Command& command = window_.Get<Command>(rule.command);
        switch (rule.state) {
            case NewState::Enabled:
            case NewState::Disabled:
                command.SetEnabled(rule.state == NewState::Enabled);
                break;
            case NewState::Visible:
            case NewState::Invisible:
                command.SetVisible(rule.state == NewState::Visible);
                break;
            case NewState::Rows:
                command.SetEnabled(rows);
                break;
            case NewState::EditorText:
                command.SetEnabled(richText_.HasText());
                break;
            case NewState::RowsAndRetrieve:
                command.SetEnabled(rows && enabled("Retrieve"));
                break;
            case NewState::AsTransmit:
                command.SetEnabled(enabled("Transmit"));
                break;
        }
    }
}

}  // namespace varno
