#pragma once

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QWidget>

namespace tlm::testing {

/// Types \a text, in whatever script, into \a field.
inline void type(QWidget& field, QString const& text)
{
    for (auto const codePoint : text.toUcs4()) {
        auto const sign = static_cast<char32_t>(codePoint);
        auto const key = codePoint < 0x80 ? QTest::asciiToKey(static_cast<char>(codePoint)) : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, &field, key, QString::fromUcs4(&sign, 1), Qt::NoModifier);
    }
}

/// Marks all that is in \a field and types \a text over it.
inline void typeOver(QWidget& field, QString const& text)
{
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) {
        QTest::keyClick(&field, Qt::Key_Delete);
    }
    type(field, text);
}

/// Marks all that is in \a field and pastes \a text over it.
inline void pasteOver(QWidget& field, QString const& text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}
}
