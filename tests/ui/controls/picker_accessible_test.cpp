#include "ui/controls/picker.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>

namespace glidemap {
namespace {

class PickerAccessibleTest : public testing::Test {
protected:
    PickerAccessibleTest() {
        picker.addItems({"English", "中文"});
        picker.show();
    }

    QString text() const { return seen->textInterface()->text(0, 100); }

    Picker picker;
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&picker);
};

TEST_F(PickerAccessibleTest, TextAndValueAreTheSelectedEntry) {
    EXPECT_EQ(seen->role(), QAccessible::ComboBox);
    ASSERT_NE(seen->textInterface(), nullptr);
    for (int index = 0; index < picker.count(); ++index) {
        picker.setCurrentIndex(index);
        EXPECT_EQ(text(), picker.itemText(index));
        EXPECT_EQ(seen->textInterface()->characterCount(), picker.itemText(index).size());
        EXPECT_EQ(seen->text(QAccessible::Value), picker.itemText(index));
    }
}

TEST_F(PickerAccessibleTest, TextIsThePlaceholderWithoutASelection) {
    picker.setPlaceholderText("Choose an app");
    picker.setCurrentIndex(-1);
    EXPECT_EQ(text(), "Choose an app");
}

TEST_F(PickerAccessibleTest, ShowMenuActionOpensAndClosesTheList) {
    for (const bool isOpen : {true, false}) {
        seen->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        EXPECT_EQ(picker.view()->isVisible(), isOpen);
    }
}

TEST_F(PickerAccessibleTest, ListIsTheOnlyChild) {
    ASSERT_EQ(seen->childCount(), 1);
    EXPECT_EQ(seen->child(0)->object(), picker.view());
    EXPECT_EQ(seen->indexOfChild(seen->child(0)), 0);
}

} // namespace
} // namespace glidemap
