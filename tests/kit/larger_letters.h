// Enlarges the interface's letters, as on a desktop with larger text.
//
// Thread:  the main thread, with a QApplication.
// Owner:   a test; restores the letters on destruction.
// Errors:  none.
#pragma once

#include <QApplication>
#include <QFont>
#include <QFontInfo>
#include <QtGlobal>

namespace glidemap::test {

class LargerLetters {
public:
    explicit LargerLetters(double factor) : usual(QApplication::font()) {
        QFont larger = usual;
        larger.setPixelSize(qRound(QFontInfo(usual).pixelSize() * factor));
        QApplication::setFont(larger);
    }
    LargerLetters(const LargerLetters&) = delete;
    LargerLetters& operator=(const LargerLetters&) = delete;
    ~LargerLetters() { QApplication::setFont(usual); }

private:
    const QFont usual;
};

} // namespace glidemap::test
