#include "app/form1.h"

#include <algorithm>

#include "app/about.h"
#include "app/main_window_design.h"
#include "app/path_rules.h"
#include "app/settings.h"
#include "codec/catalogue.h"
#include "codec/insert.h"
#include "link/communications.h"
#include "platform/version.h"

namespace varno {
namespace {

std::string KeyButtonName(std::size_t key) {
    return "KeyAssignment(" + std::to_string(key) + ")";
}

}  // namespace

Form1::Form1(Platform& platform)
    : platform_(platform),
      window_(platform.CreateWindow(MainWindowDesign())),
      msComm1_(platform.CreateSerialControl(InBufferSize)),
      controls_(MakeBlockControls()),
      message_(window_->Get<Label>("Message")),
      timer1_(window_->Get<Timer>("Timer1")),
      catalogues_(CataloguesIn(platform.App().folder)),
      commandStates_(*window_),
      safekeeping_({.RichText = controls_.RichText,
                    .TicketName = controls_.TicketName,
                    .ListName = window_->Get<Label>("ListName"),
                    .MSComm1 = *msComm1_,
                    .state = state_}),
      announce_([this](CommandEvent event) {
          safekeeping_.On(event);
          commandStates_.On(event);
          preview_.On(event);
          history_.On(event);
      }),
      files_({.RichText = controls_.RichText,
              .TicketList = controls_.TicketList,
              .TicketNumber = controls_.TicketNumber,
              .TicketName = controls_.TicketName,
              .ListName = window_->Get<Label>("ListName"),
              .Message = message_},
             platform.DialogBoxes(), state_, safekeeping_, announce_),
      put_(controls_, platform.DialogBoxes(), state_.block, announce_),
      delete_(controls_, state_.block, announce_),
      keyAssignment_(controls_, state_.block, announce_),
      listView_(
          controls_, platform.DialogBoxes(), state_.block, state_.TicketChanged, catalogues_,
          delete_, [this] { files_.SaveTicket_Click(); }, announce_),
      insertCommands_(controls_.RichText, platform, catalogues_),
      editor_(
          controls_.RichText, state_.TicketChanged, insertCommands_,
          [this] { put_.PutButton_Click(); }, announce_),
      transfer_(*msComm1_, message_, timer1_, announce_),
      upload_({.MSComm1 = *msComm1_,
               .Message = message_,
               .Timer1 = timer1_,
               .TicketList = controls_.TicketList,
               .RichText = controls_.RichText},
              platform.DialogBoxes(), state_.block, transfer_, announce_),
      download_({.Message = message_, .TicketList = controls_.TicketList}, platform, state_.block,
                transfer_, announce_),
      serialSettings_(*msComm1_, platform.DialogBoxes()),
      terminal_(platform, *msComm1_),
      tutorial_(platform),
      preview_(platform,
               {.window = *window_,
                .RichText = controls_.RichText,
                .TicketList = controls_.TicketList,
                .block = state_.block,
                .catalogues = catalogues_,
                .caretPlaced = [this] { editor_.RichText_Click(); },
                .savePdf = [this](const std::string& name,
                                  const std::string& bytes) { files_.SavePdfAs(name, bytes); }}),
      history_(platform,
               {.window = *window_,
                .RichText = controls_.RichText,
                .block = state_.block,
                .comment = CommentsOf(catalogues_),
                .isKeeping = [this] { return safekeeping_.IsBusy(); },
                .missing = [this] { return safekeeping_.Missing(); },
                .open = [this](const Copy& copy,
                               const std::string& bytes) { return OpenCopy(copy, bytes); },
                .saveAs = [this](const Copy& copy,
                                 const std::string& bytes) { files_.SaveCopyAs(copy, bytes); }}) {
    ConnectFiles();
    ConnectBlock();
    ConnectEditor();
    ConnectLink();
    ConnectPreview();
    ConnectWindow();
}

BlockControls Form1::MakeBlockControls() {
    std::array<ToggleButton*, KeyCount> keys{};
    for (std::size_t key = 0; key < keys.size(); ++key) {
        keys[key] = &window_->Get<ToggleButton>(KeyButtonName(key));
    }
    return {.TicketNumber = window_->Get<TextBox>("TicketNumber"),
            .PutButton = TheButton("PutButton"),
            .EditButton = TheButton("EditButton"),
            .KeyAssignment = keys,
            .DeleteButton = TheButton("DeleteButton"),
            .TicketList = window_->Get<ListBox>("TicketList"),
            .RichText = window_->Get<RichTextBox>("RichText"),
            .TicketName = window_->Get<Label>("TicketName")};
}

void Form1::ConnectFiles() {
    Menu("FileMenu").OnClick = [this] { files_.FileMenu_Click(); };
    Menu("LoadTicket").OnClick = [this] { files_.LoadTicket_Click(); };
    Menu("SaveTicket").OnClick = [this] { files_.SaveTicket_Click(); };
    Menu("SaveTicketAs").OnClick = [this] { files_.SaveTicketAs_Click(); };
    Menu("LoadList").OnClick = [this] { files_.LoadList_Click(); };
    Menu("SaveList").OnClick = [this] { files_.SaveList_Click(); };
    Menu("Exit").OnClick = [this] { Exit_Click(); };
}

void Form1::ConnectBlock() {
    controls_.TicketNumber.OnKeyPress = &PutCommand::TicketNumber_KeyPress;
    controls_.TicketNumber.OnChange = [this] { put_.TicketNumber_Change(); };
    controls_.PutButton.OnClick = [this] { put_.PutButton_Click(); };

    controls_.DeleteButton.OnClick = [this] { delete_.DeleteButton_Click(); };

    for (int key = 0; key < KeyCount; ++key) {
        ToggleButton& button = *controls_.KeyAssignment[static_cast<std::size_t>(key)];
        button.OnMouseUp = [this, key] { keyAssignment_.KeyAssignment_MouseUp(key); };
        button.OnClick = button.OnMouseUp;  // from the keyboard
    }

    controls_.TicketList.OnClick = [this] { listView_.TicketList_Click(); };
    controls_.TicketList.OnDblClick = [this] { listView_.TicketList_DblClick(); };
    controls_.TicketList.OnGotFocus = [this] { listView_.TicketList_GotFocus(); };
    controls_.TicketList.OnKeyUp = [this](int keyCode) { listView_.TicketList_KeyUp(keyCode); };
    controls_.TicketList.OnKeyPress = [this](char32_t character) {
        keyAssignment_.TicketList_KeyPress(character);
    };
    controls_.EditButton.OnClick = [this] { listView_.EditButton_Click(); };
}

void Form1::ConnectEditor() {
    RichTextBox& richText = controls_.RichText;
    richText.OnChange = [this] { editor_.RichText_Change(); };
    richText.OnRefused = [this](const std::string& why) {
        platform_.DialogBoxes().ShowMessage(why, ApplicationTitle, Buttons::Ok, Icon::Exclamation);
    };
    richText.OnClick = [this] { editor_.RichText_Click(); };
    richText.OnDblClick = [this] { editor_.RichText_DblClick(); };
    richText.OnKeyDown = [this](int keyCode, int shift) {
        return editor_.RichText_KeyDown(keyCode, shift);
    };
    richText.OnKeyUp = [this] { editor_.RichText_KeyUp(); };
    richText.OnGotFocus = [this] { editor_.RichText_GotFocus(); };
    Menu("ShowMarks").OnClick = [&] {
        richText.SetShowsMarks(Menu("ShowMarks").Checked());
        SaveShowsMarks(platform_.Settings(), richText.ShowsMarks());
    };
    Menu("ControlCodes").OnClick = [this] { insertCommands_.InsertControlCode(); };
    Menu("PrintCodes").OnClick = [this] { insertCommands_.InsertPrintCode(); };
    Menu("ascii").OnClick = [this] { insertCommands_.InsertAsciiCode(); };
}

void Form1::ConnectLink() {
    message_.OnChange = [this] {
        const std::string spoken = spokenStatus_.Of(message_.Caption(), msComm1_->PortOpen());
        if (!spoken.empty()) {
            window_->Announce(spoken);
        }
    };
    timer1_.OnTimer = [this] { transfer_.Timer1_Timer(); };
    msComm1_->OnReceive = [this] { upload_.MSComm1_OnComm(); };
    Menu("Varno").OnClick = [this] { download_.Varno_Click(); };
    Menu("Abort").OnClick = [this] { transfer_.Abort_Click(); };
    Menu("Retrieve").OnClick = [this] { upload_.Retrieve_Click(); };
    Menu("Transmit").OnClick = [this] { download_.Transmit_Click(); };
    Menu("Serial").OnClick = [this] { serialSettings_.Serial_Click(); };
    Menu("OpenTerminalWindow").OnClick = [this] { terminal_.OpenTerminalWindow_Click(); };
    TheButton("UploadButton").OnClick = [this] { upload_.UploadButton_Click(); };
    TheButton("DownloadButton").OnClick = [this] { download_.DownloadButton_Click(); };
}

void Form1::ConnectPreview() {
    controls_.RichText.OnSelChange = [this] { preview_.RichText_SelChange(); };
    Menu("TellCaret").OnClick = [this] { preview_.TellCaret_Click(); };
    Menu("ShowPreview").OnClick = [this] { preview_.ShowPreview_Click(); };
    Menu("ShowHistory").OnClick = [this] { history_.ShowHistory_Click(); };
}

// The rest of an image is not added to a block that was opened. The keys go to what was opened.
bool Form1::OpenCopy(const Copy& copy, const std::string& bytes) {
    if (const Error error = files_.OpenCopy(copy, bytes)) {
        platform_.DialogBoxes().ShowMessage(*error, ApplicationTitle, Buttons::Ok, Icon::Critical);
        return false;
    }
    if (copy.kind == CopyKind::Block) {
        upload_.Stop();
    }
    Control& opened = copy.kind == CopyKind::Ticket ? static_cast<Control&>(controls_.RichText)
                                                    : controls_.TicketList;
    opened.SetFocus();
    return true;
}

void Form1::ConnectWindow() {
    window_->Get<Timer>("SafekeepingTimer").OnTimer = [this] {
        announce_(CommandEvent::TimePasses);
    };
    window_->OnResize = [this] { Form_Resize(); };
    window_->OnClose = [this] { Form_Unload(); };
    window_->OnKeyPress = [this](char32_t character) { transfer_.Form_KeyPress(character); };
    Menu("ShowTutorial").OnClick = [this] { tutorial_.ShowTutorial_Click(); };
    Menu("ShowTutorialPage").OnClick = [this] { tutorial_.ShowTutorialPage_Click(); };
    Menu("about").OnClick = [this] { about_Click(platform_); };
}

void Form1::Form_Load() {
    const SettingsStore& settings = platform_.Settings();
    LoadFolders(settings, state_.folders);
    LoadCommunications(settings, *msComm1_);
    window_->SetMinimumSize(MinimumWidth, MinimumHeight);
    LoadWindowSize(settings, *window_);
    controls_.RichText.SetShowsMarks(LoadShowsMarks(settings));
    Menu("ShowMarks").SetChecked(controls_.RichText.ShowsMarks());
    window_->SetCaption(platform_.App().exeName + " " + std::string(Version));
    OpenFileOfCommandLine();
    InsertPlain(controls_.RichText);
    state_.TicketChanged = false;
    controls_.RichText.SetFocus();
}

void Form1::OpenFileOfCommandLine() {
    const std::string& path = platform_.App().commandLine;
    Error error;
    if (EndsIn(path, "VRB")) {
        error = files_.OpenBlockFile(path);
    } else if (EndsIn(path, "VRT")) {
        error = files_.OpenTicketFile(path);
    }
    if (error) {
        platform_.DialogBoxes().ShowMessage(*error, ApplicationTitle, Buttons::Ok, Icon::Critical);
    }
}

void Form1::Form_Resize() {
    if (window_->State() == WindowState::Minimised) {
        return;
    }
    const Place outer = window_->CurrentOuterPlace();
    LayOutControls(*window_, MainWindowLayout(), std::max(outer.width, MinimumWidth),
                   std::max(outer.height, MinimumHeight));
}

void Form1::Form_Unload() {
    transfer_.Stop();
    files_.AskToSaveTicket();
    files_.AskToSaveBlock();
    announce_(CommandEvent::Closes);
    SettingsStore& settings = platform_.Settings();
    SaveFolders(settings, state_.folders);
    SaveCommunications(settings, *msComm1_);
    SaveWindowSize(settings, *window_);
    platform_.Quit();
}

}  // namespace varno
