// The platform on Qt.
#pragma once

#include "platform/platform.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_settings.h"

namespace varno {

// The look that all windows share. Before the first window.
void PrepareApplication();

// What the running program knows of itself. Needs the application object.
ProgramInfo ThisProgram();

class QtPlatform : public Platform {
  public:
    explicit QtPlatform(ProgramInfo info);

    const ProgramInfo& App() const override { return info_; }
    std::unique_ptr<Window> CreateWindow(const WindowDesign& design) override;
    std::unique_ptr<SerialControl> CreateSerialControl(int inBufferSize) override;
    Dialogs& DialogBoxes() override { return dialogs_; }
    SettingsStore& Settings() override { return settings_; }
    [[nodiscard]] Error OpenDocument(const std::string& path) override;
    void DoEvents() override;
    void Quit() override;

  private:
    ProgramInfo info_;
    QtDialogs dialogs_;
    QtSettings settings_;
    QWidget* mainWindow_ = nullptr;  // the first window created; the others belong to it
};

}  // namespace varno
