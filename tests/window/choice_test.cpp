// A row or an entry that is chosen, on the controls themselves.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "editor/ascii_picker.h"
#include "editor/code_picker.h"
#include "platform/qt/row_list.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

// However an entry or a row is chosen, once or once more, the program hears of it once.
TEST(Choice, IsHeardOnce) {
    const auto click = [](const QListWidget* list, int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    };
    QtWindow codes(ControlCodesList(), nullptr);
    QtWindow numbers(AsciiCodesList(), nullptr);
    int heard = 0;
    auto& combo = codes.Get<SimpleCombo>("CodeComboBox");
    combo.AddItems(std::vector<std::string>{"001", "002", "003"});
    combo.OnClick = [&] { ++heard; };
    auto& box = numbers.Get<ListBox>("List1");
    for (const char* row : {"0", "1", "2"}) {
        box.AddItem(row);
    }
    box.OnClick = [&] { ++heard; };
    for (QtWindow* window : {&codes, &numbers}) {
        window->Show();
        auto* list = window->Widget()->findChild<RowList*>();
        const std::function<void()> choices[] = {
            [&] { click(list, 1); },
            [&] { click(list, 1); },
            [&] { QTest::keyClick(list, Qt::Key_Down); },
            [&] { click(list, 0); },
        };
        for (const auto& choose : choices) {
            heard = 0;
            choose();
            EXPECT_EQ(heard, 1) << &choose - choices;
        }
    }
}

}  // namespace
}  // namespace varno
