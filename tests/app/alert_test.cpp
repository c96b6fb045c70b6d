#include "app/alert.h"
#include "app/alert_texts.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QGuiApplication>
#include <QIcon>
#include <QTest>

namespace glidemap {
namespace {

AlertText shownBy(const Alert& alert) {
    AlertText shown{alert.text().toStdString(), alert.informativeText().toStdString(), {}};
    for (const QAbstractButton* button : alert.buttons()) {
        shown.buttons.push_back(button->text().toStdString());
    }
    return shown;
}

class AlertTest : public testing::Test {
protected:
    static AlertText question(const Lang& lang) {
        return {lang.choose("Go on?", "继续吗？"),
                lang.choose("It takes long.", "需要很长时间。"),
                {lang.choose("Yes", "是"), lang.choose("No", "否")}};
    }

    Lang lang{nullptr};
};

TEST_F(AlertTest, OpenAlertFollowsTheLanguage) {
    Alert alert(question, lang);
    alert.show();
    EXPECT_EQ(shownBy(alert), (AlertText{"Go on?", "It takes long.", {"Yes", "No"}}));
    lang.setCode("zh");
    EXPECT_EQ(shownBy(alert), (AlertText{"继续吗？", "需要很长时间。", {"是", "否"}}));
    lang.setCode("en");
    EXPECT_EQ(shownBy(alert), (AlertText{"Go on?", "It takes long.", {"Yes", "No"}}));
}

// A native dialog would use the system's language, not the program's.
TEST_F(AlertTest, NeverUsesANativeDialog) {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    const Alert alert(question, lang);
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
}

TEST_F(AlertTest, HasAnIconEvenWithoutAWindowIcon) {
    ASSERT_TRUE(QGuiApplication::windowIcon().isNull());
    const Alert alert(question, lang);
    EXPECT_FALSE(alert.iconPixmap().isNull());
}

TEST_F(AlertTest, DestroyedAlertIsNotQueriedForTexts) {
    int asked = 0;
    {
        const Alert alert(
            [&asked](const Lang& shown) {
                ++asked;
                return question(shown);
            },
            lang);
    }
    asked = 0;
    lang.setCode("zh");
    EXPECT_EQ(asked, 0);
}

TEST_F(AlertTest, ReturnPressesTheFirstButtonAndEscapeTheLast) {
    struct Row {
        Qt::Key key;
        bool first;
    };
    for (const Row& row : {Row{Qt::Key_Return, true}, Row{Qt::Key_Escape, false}}) {
        Alert alert(question, lang);
        alert.show();
        lang.setCode("zh"); // must keep the buttons and their roles
        QTest::keyClick(&alert, row.key);
        EXPECT_FALSE(alert.isVisible()) << row.key;
        EXPECT_EQ(alert.isFirstButtonChosen(), row.first) << row.key;
    }
}

// Checks each alert that offers no choice: it has texts in both languages, and one button.
TEST_F(AlertTest, EachMessageExistsInBothLanguages) {
    for (AlertText (*text)(const Lang&) : {noStatusBarText, unansweredText, withoutLockText}) {
        lang.setCode("en");
        const AlertText english = text(lang);
        lang.setCode("zh");
        const AlertText chinese = text(lang);
        EXPECT_EQ(english.buttons, std::vector<std::string>{"OK"});
        EXPECT_EQ(chinese.buttons, std::vector<std::string>{"好"});
        EXPECT_THAT(english.message + english.informative,
                    testing::Each(testing::AllOf(testing::Ge(' '), testing::Le('~'))));
        for (const std::string& line : {chinese.message, chinese.informative}) {
            EXPECT_NE(line.find("。") == std::string::npos, line == chinese.informative) << line;
        }
    }
}

} // namespace
} // namespace glidemap
