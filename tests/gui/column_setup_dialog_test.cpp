// SPDX-License-Identifier: MIT
#include "setup_bench.h"

#include <QClipboard>
#include <QGroupBox>
#include <QLabel>

#include <cmath>

namespace tarvelint::test {

namespace {

const std::string kLatin1 = "Temp\xE9rature"; // "é" as the single byte of Windows-1252

} // namespace

class ColumnSetupDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    // Column setup: rows and paging

    void ofTwentyColumnsFifteenRowsShowAndTheBarRunsToFive()
    {
        SetupBench bench(20);
        bench.show();
        QCOMPARE(bench.visibleRows(), 15);
        QVERIFY(bench.bar()->isVisible());
        QCOMPARE(bench.bar()->maximum(), 5);
        QCOMPARE(bench.dialog->windowTitle(), QStringLiteral("Labels"));
    }

    void fifteenColumnsOrFewerNeedNoBar()
    {
        for (const int columns : {1, 15}) {
            SetupBench bench(columns);
            bench.show();
            QCOMPARE(bench.visibleRows(), columns);
            QVERIFY(!bench.bar()->isVisible());
        }
    }

    void aRowIsItsNumberItsLabelAndItsMark()
    {
        SetupBench bench(3);
        bench.show();
        QCOMPARE(bench.child<QLabel>(QStringLiteral("colLabel3"))->text(), QStringLiteral("3"));
        QCOMPARE(bench.labelBox(3)->text(), QStringLiteral("a3"));
        QCOMPARE(bench.checkBox(3)->text(), QStringLiteral("Do not convert"));
        QCOMPARE(bench.labelBox(3)->accessibleName(), QStringLiteral("Label of column 3"));
        QCOMPARE(bench.checkBox(3)->accessibleName(), QStringLiteral("Do not convert column 3"));
    }

    void rowsLieTwentyThreeUnitsApartAndPagingKeepsTheirPlaces()
    {
        SetupBench bench(20);
        bench.show();
        const int top = bench.labelBox(1)->y();
        const int pitch = bench.labelBox(2)->y() - top;
        QVERIFY(pitch >= ColumnSetup::kRowPitch);
        const double unit = static_cast<double>(pitch) / 23;
        QCOMPARE(top, static_cast<int>(std::lround(2 * unit)));
        bench.bar()->setValue(3); // row 4 is at the top now, 18 at the bottom
        QVERIFY(bench.labelBox(4)->y() == top && bench.checkBox(4)->y() == top);
        QCOMPARE(bench.child<QLabel>(QStringLiteral("colLabel4"))->y(), top);
        QCOMPARE(bench.labelBox(18)->y(), static_cast<int>(std::lround((2 + 14 * 23) * unit)));
        QCOMPARE(bench.labelBox(18)->text(), QStringLiteral("a18"));
        QVERIFY(bench.labelBox(3) == nullptr && bench.labelBox(19) == nullptr);
    }

    void fifteenRowsFitIntoFormPicture()
    {
        SetupBench bench(20);
        bench.show();
        auto* picture = bench.child<QWidget>(QStringLiteral("formPicture"));
        for (int i = 1; i <= 15; ++i) {
            const QRect row = bench.labelBox(i)->geometry() | bench.checkBox(i)->geometry();
            QVERIFY(picture->contentsRect().contains(row));
        }
    }

    void pagingGivesTheFocusToFormPicture()
    {
        SetupBench bench(20);
        bench.show();
        bench.checkBox(2)->setFocus();
        bench.bar()->setValue(1);
        QVERIFY(bench.child<QWidget>(QStringLiteral("formPicture"))->hasFocus());
    }

    void theWheelOverTheRowsPages()
    {
        SetupBench bench(40);
        bench.show();
        auto* picture = bench.child<QWidget>(QStringLiteral("formPicture"));
        const QPointF middle = picture->rect().center();
        QWheelEvent turn(middle, picture->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(picture, &turn);
        QVERIFY(bench.bar()->value() > 0);
    }

    void theLastOfManyColumnsCanBeReached()
    {
        SetupBench bench(32767);
        bench.show();
        bench.bar()->setValue(32752);
        QCOMPARE(bench.labelBox(32767)->text(), QStringLiteral("a32767"));
        QCOMPARE(bench.visibleRows(), 15);
    }

    void tabGoesFromLabelToMarkToNextLabelAndPagesAtTheEnds()
    {
        SetupBench bench(17);
        bench.show();
        QVERIFY(bench.labelBox(1)->hasFocus());
        for (int i = 0; i < 29; ++i) QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Tab);
        QVERIFY(bench.checkBox(15)->hasFocus()); // 29 tabs past label 1: 14 rows of two, and one
        QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Tab);
        QVERIFY(bench.labelBox(16)->hasFocus());
        QCOMPARE(bench.bar()->value(), 1);
        bench.labelBox(2)->setFocus();
        QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(bench.checkBox(1)->hasFocus());
        QCOMPARE(bench.bar()->value(), 0);
    }

    void afterTheRowsTabGoesThroughTheCheckBoxesThenCancelThenOk()
    {
        SetupBench bench(2);
        bench.show();
        bench.checkBox(2)->setFocus();
        QString visited;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Tab);
            visited += bench.dialog->focusWidget()->objectName() + QLatin1Char(' ');
        }
        QCOMPARE(visited, QStringLiteral("saveBox turboCheck CancelButton OKButton "));
    }

    void tabComesToRowOneAndBackToTheLastWhereverTheBarStands()
    {
        SetupBench bench(24);
        bench.show();
        bench.bar()->setValue(9);
        auto* ok = bench.child<QPushButton>(QStringLiteral("OKButton"));
        ok->setFocus();
        QTest::keyClick(ok, Qt::Key_Tab);
        QVERIFY(bench.labelBox(1) != nullptr && bench.labelBox(1)->hasFocus());
        QTest::keyClick(bench.labelBox(1), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(ok->hasFocus());
        bench.saveBox()->setFocus();
        QTest::keyClick(bench.saveBox(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(bench.checkBox(24) != nullptr && bench.checkBox(24)->hasFocus());
        QTest::keyClick(bench.checkBox(24), Qt::Key_Tab);
        QVERIFY(bench.saveBox()->hasFocus());
    }

    void tabGoesThroughTheParameterBoxesWhileTheyTakeInput()
    {
        SetupBench bench(2);
        bench.setup().boxes.turboCheck = true;
        bench.show();
        auto* turbo = bench.child<QCheckBox>(QStringLiteral("turboCheck"));
        turbo->setFocus();
        QString visited;
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Tab);
            visited += bench.dialog->focusWidget()->objectName() + QLatin1Char(' ');
        }
        QCOMPARE(visited, QStringLiteral("vpdBox parBox VPDlBox PARlBox timeBox CancelButton "));
    }

    void pageDownGoesFifteenRowsOn()
    {
        SetupBench bench(40);
        bench.show();
        bench.checkBox(3)->setFocus();
        QTest::keyClick(bench.checkBox(3), Qt::Key_PageDown);
        QVERIFY(bench.checkBox(18)->hasFocus());
        QCOMPARE(bench.bar()->value(), 3); // the least paging that shows row 18
    }

    // Column setup: what the boxes hold

    void aMarkReachesTheSetUpAndPagesWithItsColumn()
    {
        SetupBench bench(20);
        bench.show();
        QTest::keyClick(bench.checkBox(2), Qt::Key_Space);
        QVERIFY(bench.setup().checkBox(2));
        bench.bar()->setValue(5);
        QVERIFY(!bench.checkBox(7)->isChecked() && !bench.setup().checkBox(7)); // the widget that showed column 2
        bench.bar()->setValue(0);
        QVERIFY(bench.checkBox(2)->isChecked());
        QTest::keyClick(bench.checkBox(2), Qt::Key_Space);
        QVERIFY(!bench.setup().checkBox(2));
    }

    void okTakesLabelsMarksAndSaveBoxAsACommand()
    {
        SetupBench bench(20);
        bench.show();
        bench.labelBox(2)->selectAll();
        QTest::keyClicks(bench.labelBox(2), QStringLiteral("PAR"));
        bench.bar()->setValue(5);
        QTest::keyClick(bench.checkBox(20), Qt::Key_Space);
        bench.saveBox()->setChecked(true);
        bench.press(QStringLiteral("OKButton"));
        QVERIFY(bench.commands == 1 && bench.answers == 0);
        QCOMPARE(bench.window.record.labels.at(1), std::string("PAR"));
        QVERIFY(bench.window.record.isParameter(19) && bench.window.record.savesLabels);
        QVERIFY(!bench.dialog->isVisible());
    }

    void enterIsOkEvenInALabel()
    {
        SetupBench bench(2);
        bench.show();
        QTest::keyClick(bench.labelBox(1), Qt::Key_Return);
        QVERIFY(bench.commands == 1 && !bench.dialog->isVisible());
    }

    void cancelEscAndTheFramePutTheMarksBack_data()
    {
        QTest::addColumn<QString>("way");
        for (const char* way : {"button", "Esc", "frame"}) QTest::newRow(way) << QString::fromLatin1(way);
    }
    void cancelEscAndTheFramePutTheMarksBack()
    {
        QFETCH(const QString, way);
        SetupBench bench(3);
        bench.show();
        bench.checkBox(1)->setChecked(true);
        bench.saveBox()->setChecked(true);
        bench.labelBox(3)->setText(QStringLiteral("other"));
        if (way == QStringLiteral("button")) bench.press(QStringLiteral("CancelButton"));
        if (way == QStringLiteral("Esc")) QTest::keyClick(bench.dialog.get(), Qt::Key_Escape);
        if (way == QStringLiteral("frame")) bench.dialog->close();
        QVERIFY(bench.commands == 0 && bench.answers == 1 && !bench.dialog->isVisible());
        QCOMPARE(bench.window.record.labels.at(2), std::string("a3"));
        bench.setup().Form_Show();
        bench.dialog->showFor(false);
        QVERIFY(!bench.checkBox(1)->isChecked());
        QVERIFY(!bench.saveBox()->isChecked());
        QCOMPARE(bench.labelBox(3)->text(), QStringLiteral("a3"));
    }

    void aParameterBoxStartsFromItsDefaultAndReachesTheSetUp_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<std::string ColumnSetup::Boxes::*>("held");
        QTest::newRow("vpdBox") << QStringLiteral("11") << &ColumnSetup::Boxes::vpdBox;
        QTest::newRow("parBox") << QStringLiteral("3") << &ColumnSetup::Boxes::parBox;
        QTest::newRow("VPDlBox") << QStringLiteral("0.05") << &ColumnSetup::Boxes::VPDlBox;
        QTest::newRow("PARlBox") << QStringLiteral("0.01") << &ColumnSetup::Boxes::PARlBox;
        QTest::newRow("timeBox") << QStringLiteral("3") << &ColumnSetup::Boxes::timeBox;
    }
    void aParameterBoxStartsFromItsDefaultAndReachesTheSetUp()
    {
        QFETCH(std::string ColumnSetup::Boxes::*, held);
        SetupBench bench(12);
        bench.show();
        auto* box = bench.child<QLineEdit>(QString::fromLatin1(QTest::currentDataTag()));
        QTEST(box->text(), "start");
        box->setText(QStringLiteral("7"));
        QCOMPARE(bench.setup().boxes.*held, std::string("7"));
    }

    void thePreProcessSwitchesItsFrame()
    {
        SetupBench bench(3);
        bench.show();
        auto* turbo = bench.child<QCheckBox>(QStringLiteral("turboCheck"));
        auto* frame = bench.child<QGroupBox>(QStringLiteral("paramFrame"));
        QCOMPARE(turbo->text(), QStringLiteral("VPD pre-process"));
        QVERIFY(frame->isVisible() && !frame->isEnabled());
        QTest::keyClick(turbo, Qt::Key_Space);
        QVERIFY(frame->isEnabled() && bench.setup().boxes.turboCheck);
        QTest::keyClick(turbo, Qt::Key_Space);
        QVERIFY(!frame->isEnabled() && !bench.setup().boxes.turboCheck);
    }

    void theTipIsTheSetUpsAndTheSaveBoxIsCaptioned()
    {
        SetupBench bench(3);
        bench.show();
        const auto* tip = bench.child<QLabel>(QStringLiteral("tipLabel"));
        QCOMPARE(tip->text().toStdString(), ColumnSetup::tipLabel());
        QVERIFY(tip->text().contains(QStringLiteral("Check 'Save labels in iutput file' to save")));
        QVERIFY(tip->height() >= tip->heightForWidth(tip->width())); // nothing of it is cut off
        QCOMPARE(bench.saveBox()->text(), QStringLiteral("Save labels in output file"));
    }

    void blockingBlocksItsWindowAndOtherwiseNot()
    {
        SetupBench bench(3);
        bench.show(true);
        QCOMPARE(bench.dialog->windowModality(), Qt::WindowModal);
        bench.dialog->showFor(false);
        QCOMPARE(bench.dialog->windowModality(), Qt::NonModal);
    }

    void theDialogOpensBesideItsWindowAgainAfterItWasMoved()
    {
        SetupBench bench(3);
        bench.parent.move(120, 90);
        bench.show();
        bench.dialog->move(0, 0);
        bench.dialog->showFor(false);
        QVERIFY(QTest::qWaitForWindowExposed(bench.dialog.get()));
        QTRY_COMPARE(bench.dialog->pos(), QPoint(720, 90)); // 120 + 600
    }

    void okGivesUneditedLabelsBackByteForByte()
    {
        SetupBench bench(20);
        bench.window.record.labels.at(0) = kLatin1;
        bench.window.record.labels.at(1) = kLatin1;
        bench.setup().CancelButton_Click();
        bench.setup().Form_Show();
        bench.show();
        QCOMPARE(bench.labelBox(1)->text(), QString::fromUtf8("Temp\u00e9rature"));
        QTest::keyClick(bench.labelBox(1), Qt::Key_End); // typed and taken back
        QTest::keyClicks(bench.labelBox(1), QStringLiteral("x"));
        QTest::keyClick(bench.labelBox(1), Qt::Key_Backspace);
        QTest::keyClick(bench.labelBox(2), Qt::Key_End);
        QTest::keyClicks(bench.labelBox(2), QStringLiteral("x"));
        bench.bar()->setValue(5);
        bench.bar()->setValue(0);
        bench.press(QStringLiteral("OKButton"));
        QCOMPARE(bench.window.record.labels.at(0), kLatin1);
        QCOMPARE(bench.window.record.labels.at(1), kLatin1 + "x");
    }

    void openingItOnceMoreWhileItIsOpenKeepsTheOriginalBytes()
    {
        SetupBench bench(3);
        bench.window.record.labels.at(0) = kLatin1;
        bench.setup().CancelButton_Click();
        bench.setup().Form_Show();
        bench.show();
        QTest::keyClick(bench.labelBox(1), Qt::Key_End);
        bench.labelBox(1)->insert(QString::fromUtf8("\u03b1")); // Greek is not in the label's encoding
        bench.setup().Form_Show();
        bench.dialog->showFor(false);
        QCOMPARE(bench.labelBox(1)->text(), QString::fromUtf8("Temp\u00e9rature\u03b1"));
        QTest::keyClick(bench.labelBox(1), Qt::Key_End);
        QTest::keyClick(bench.labelBox(1), Qt::Key_Backspace);
        bench.press(QStringLiteral("OKButton"));
        QCOMPARE(bench.window.record.labels.at(0), kLatin1);
    }

    void pastedLineEndsAndControlCharactersBecomeBlanksInTheBoxAndInTheLabel()
    {
        SetupBench bench(2);
        bench.show();
        QApplication::clipboard()->setText(QStringLiteral("PAR\r\nsum\t1") + QChar(u'\0') + QChar(0x2028));
        QLineEdit* box = bench.labelBox(1);
        QTest::keyClick(box, Qt::Key_Home);
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box->text(), QStringLiteral("PAR  sum 1  a1"));
        QCOMPARE(box->cursorPosition(), 12); // behind what was pasted
        bench.press(QStringLiteral("OKButton"));
        QCOMPARE(bench.window.record.labels.at(0), std::string("PAR  sum 1  a1"));
    }

    void aControlCharacterOfTheFileStaysInALabelThatIsNotEdited()
    {
        SetupBench bench(2);
        bench.window.record.labels.at(0) = "PAR\x01sum";
        bench.setup().CancelButton_Click();
        bench.setup().Form_Show();
        bench.show();
        QCOMPARE(bench.labelBox(1)->text(), QStringLiteral("PAR sum"));
        QTest::keyClick(bench.labelBox(1), Qt::Key_End); // typed and taken back
        QTest::keyClicks(bench.labelBox(1), QStringLiteral("x"));
        QTest::keyClick(bench.labelBox(1), Qt::Key_Backspace);
        bench.press(QStringLiteral("OKButton"));
        QCOMPARE(bench.window.record.labels.at(0), std::string("PAR\x01sum"));
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::ColumnSetupDialogTest)
#include "column_setup_dialog_test.moc"
