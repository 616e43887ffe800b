// The main window: creates its parts, owns the working state, and connects events to handlers.
#pragma once

#include <memory>

#include "app/command_states.h"
#include "app/file_commands.h"
#include "app/safekeeping.h"
#include "app/tutorial.h"
#include "app/working_state.h"
#include "block/delete.h"
#include "block/key_assignment.h"
#include "block/put.h"
#include "block/ticket_list_view.h"
#include "editor/insert_commands.h"
#include "editor/ticket_editor.h"
#include "history/history_window.h"
#include "link/download.h"
#include "link/serial_settings_command.h"
#include "link/spoken_status.h"
#include "link/terminal.h"
#include "link/transfer.h"
#include "link/upload.h"
#include "platform/platform.h"
#include "preview/preview.h"

namespace varno {

class Form1 {
  public:
    explicit Form1(Platform& platform);

    void Form_Load();  // reads the settings and the file of the command line
    void Show() { window_->Show(); }

    void Form_Resize();
    void Form_Unload();
    void Exit_Click() { window_->Close(); }

    Window& MainWindow() { return *window_; }
    const WorkingState& State() const { return state_; }

  private:
    BlockControls MakeBlockControls();
    void ConnectFiles();
    void ConnectBlock();
    void ConnectEditor();
    void ConnectLink();
    void ConnectPreview();
    bool OpenCopy(const Copy& copy, const std::string& bytes);
    void ConnectWindow();
    void OpenFileOfCommandLine();

    Button& TheButton(std::string_view name) { return window_->Get<Button>(name); }
    MenuItem& Menu(std::string_view name) { return window_->Get<MenuItem>(name); }

    Platform& platform_;
    WorkingState state_;
    std::unique_ptr<Window> window_;
    std::unique_ptr<SerialControl> msComm1_;
    BlockControls controls_;
    Label& message_;
    Timer& timer1_;
    Catalogues catalogues_;
    CommandStates commandStates_;
    Safekeeping safekeeping_;
    Announce announce_;  // to all that listen

    FileCommands files_;
    PutCommand put_;
    DeleteCommand delete_;
    KeyAssignmentCommand keyAssignment_;
    TicketListView listView_;
    InsertCommands insertCommands_;
    TicketEditor editor_;
    SpokenStatus spokenStatus_;
    Transfer transfer_;
    Upload upload_;
    Download download_;
    SerialSettingsCommand serialSettings_;
    Terminal terminal_;
    Tutorial tutorial_;
    Preview preview_;
    HistoryWindow history_;
};

}  // namespace varno
