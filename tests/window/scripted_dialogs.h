// An operator who answers questions by a script. A question that the script does not expect next,
// and one that never comes, fail the test.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace varno {

struct Message {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
};

class ScriptedDialogs final : public Dialogs {
  public:
    ~ScriptedDialogs() override { ExpectNoMore(); }

    // `meanwhile` runs while the box is open.
    void Expect(const Message& message, Answer answer, std::function<void()> meanwhile = {});
    void ExpectInput(const std::string& title, const std::string& prompt, std::string reply);
    void ExpectOpen(std::optional<ChosenFile> chosen);
    void ExpectSave(std::optional<ChosenFile> chosen);
    // From now on `hear` gets every message box, and Ok answers it.
    void Listen(std::function<void(const Message&)> hear) { hear_ = std::move(hear); }
    // All that was expected so far has come; also checked at the end.
    void ExpectNoMore();

    Answer ShowMessage(const std::string& text, const std::string& title, Buttons buttons,
                       Icon icon) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override;
    std::optional<ChosenFile> ShowOpen(const FileDialog& dialog) override;
    std::optional<ChosenFile> ShowSave(const FileDialog& dialog) override;

    std::vector<std::string> inputDefaults;  // what the input boxes offered
    std::vector<FileDialog> fileDialogs;     // how the file dialogs were set up

  private:
    struct Step {
        std::string question;
        Answer answer = Answer::Cancel;
        std::string reply;
        std::optional<ChosenFile> chosen;
        std::function<void()> meanwhile;
    };
    Step Next(const std::string& question);

    std::deque<Step> script_;
    std::function<void(const Message&)> hear_;
};

}  // namespace varno
