// An operator who answers questions by a script. A question that the script does not expect next,
// and one that never comes, fail the test.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialogs.h"

namespace varno {

struct Message {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;

    bool operator==(const Message&) const = default;
};

inline std::string Shown(const Message& message) {
    return "\"" + message.title + "\": \"" + message.text + "\" buttons " +
           std::to_string(static_cast<int>(message.buttons)) + " icon " +
           std::to_string(static_cast<int>(message.icon));
}

class ScriptedDialogs final : public Dialogs {
  public:
    ~ScriptedDialogs() override { ExpectNoMore(); }

    // `meanwhile` runs while the box is open.
    void Expect(const Message& message, Answer answer, std::function<void()> meanwhile = {}) {
        script_.push_back({Shown(message), answer, {}, {}, std::move(meanwhile)});
    }
    void ExpectInput(const std::string& title, const std::string& prompt, std::string reply) {
        script_.push_back({"\"" + title + "\": \"" + prompt, {}, std::move(reply), {}, {}});
    }
    void ExpectOpen(std::optional<ChosenFile> chosen) {
        script_.push_back({"open dialog", {}, {}, std::move(chosen), {}});
    }
    void ExpectSave(std::optional<ChosenFile> chosen) {
        script_.push_back({"save dialog", {}, {}, std::move(chosen), {}});
    }
    // From now on `hear` gets every message box, and Ok answers it.
    void Listen(std::function<void(const Message&)> hear) { hear_ = std::move(hear); }
    // All that was expected so far has come; also checked at the end.
    void ExpectNoMore() {
        for (const Step& step : script_) {
            ADD_FAILURE() << "never asked: " << step.question;
        }
        script_.clear();
    }

    Answer ShowMessage(const std::string& text, const std::string& title, Buttons buttons,
                       Icon icon) override {
        const Message message{text, title, buttons, icon};
        if (hear_) {
            hear_(message);
            return Answer::Ok;
        }
        const Step step = Next(Shown(message));
        if (step.meanwhile) {
            step.meanwhile();
        }
        return step.answer;
    }
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override {
        inputDefaults.push_back(defaultText);
        return Next("\"" + title + "\": \"" + prompt).reply;
    }
    std::optional<ChosenFile> ShowOpen(const FileDialog& dialog) override {
        fileDialogs.push_back(dialog);
        return Next("open dialog").chosen;
    }
    std::optional<ChosenFile> ShowSave(const FileDialog& dialog) override {
        fileDialogs.push_back(dialog);
        return Next("save dialog").chosen;
    }

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

    // An unexpected question is cancelled, so that no loop asks for ever.
    Step Next(const std::string& question) {
        if (script_.empty() || script_.front().question != question) {
            ADD_FAILURE() << "unexpected: " << question << "\nexpected:   "
                          << (script_.empty() ? "nothing" : script_.front().question);
            return {};
        }
        Step step = std::move(script_.front());
        script_.pop_front();
        return step;
    }

    std::deque<Step> script_;
    std::function<void(const Message&)> hear_;
};

}  // namespace varno
