// SPDX-License-Identifier: MIT
#include "every_dialog.h"

#include <QLabel>
#include <QScreen>

#include <set>

namespace tarvelint::test {

namespace {

/// The dialog's inner edge: the buttons end there.
int rightEdge(const QDialog& dialog)
{
    return dialog.width() - dialog.layout()->contentsMargins().right();
}

int left(const QDialog& dialog, const QWidget& widget)
{
    return widget.mapTo(&dialog, QPoint()).x();
}

QList<QLineEdit*> numberBoxes(const QDialog& dialog)
{
    auto boxes = dialog.findChildren<QLineEdit*>();
    boxes.removeIf([](QLineEdit* box) { return box->objectName() == QStringLiteral("eqBox"); });
    return boxes;
}

} // namespace

class OptionsLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theEquationReachesTheEdgeOfTheDialogAndGrowsWithIt()
    {
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QStringLiteral("options"));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const auto* equation = dialog.findChild<QLineEdit*>(QStringLiteral("eqBox"));
        const int before = equation->width();
        QCOMPARE(left(dialog, *equation) + before, rightEdge(dialog));
        dialog.resize(dialog.width() + 200, dialog.height());
        QTRY_COMPARE(equation->width(), before + 200);
    }

    void boxesForNumbersAreAsNarrowAsNumbersAndHoldTheLongestDefault()
    {
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QStringLiteral("options"));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const auto boxes = numberBoxes(dialog);
        QCOMPARE(boxes.size(), 8);
        const QFontMetrics letters = dialog.fontMetrics();
        for (const auto* box : boxes) {
            QCOMPARE(box->width(), 12 * letters.averageCharWidth());
            QVERIFY(box->width() > letters.horizontalAdvance(QStringLiteral("99999")) + 12); // and the box's frame
        }
    }

    void captionsAndBoxesStandInTwoColumns()
    {
        Dialogs dialogs;
        QDialog& dialog = dialogs.show(QStringLiteral("options"));
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        std::set<int> captions;
        std::set<int> boxes;
        for (const auto* caption : dialog.findChildren<QLabel*>()) {
            captions.insert(left(dialog, *caption));
            boxes.insert(left(dialog, *caption->buddy()));
            QVERIFY(left(dialog, *caption) + caption->sizeHint().width() < left(dialog, *caption->buddy()));
        }
        QCOMPARE(captions.size(), std::size_t{1});
        QCOMPARE(boxes.size(), std::size_t{1});
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::OptionsLayoutTest)
#include "options_layout_test.moc"
