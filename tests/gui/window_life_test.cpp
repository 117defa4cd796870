// SPDX-License-Identifier: MIT
#include "app/qt/frm_splash.h"
#include "app/qt/start_up.h"
#include "desk.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QWindow>

#include <cmath>

namespace tarvelint::test {

namespace {

constexpr int kS1 = 5; // 0-based column of the first sensor: Day, Time, PAR, VPD and Tair come before it

/// Answers every question of every window; keeps the titles of who asked, in order.
class Questions : public QObject {
public:
    Questions(const WindowList& windows, std::function<QMessageBox::StandardButton(FrmMain&)> choose)
    {
        connect(&m_timer, &QTimer::timeout, this, [this, &windows, choose = std::move(choose)] {
            for (FrmMain* window : windows.mainWindows())
                for (auto* box : window->form().findChildren<QMessageBox*>(QStringLiteral("messageBox")))
                    if (box->isVisible()) {
                        asked.append(window->form().windowTitle());
                        titles.append(box->windowTitle());
                        return QTest::mouseClick(box->button(choose(*window)), Qt::LeftButton);
                    }
        });
        m_timer.start(5);
    }

    QStringList asked;
    QStringList titles;

private:
    QTimer m_timer;
};

} // namespace

class WindowLifeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void aWindowWithUnsavedDataAsksBeforeItCloses()
    {
        Desk desk;
        desk.openSample();
        desk.answer(QMessageBox::Cancel);
        QVERIFY(!desk.form->close());
        QCOMPARE(desk.title, QStringLiteral("Close window:"));
        QVERIFY(desk.form->isVisible());
        QVERIFY(!desk.core().forms.haveLabelForm()); // its dialogs go even so

        desk.onBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QVERIFY(!desk.form->close());
        QSignalSpy gone(&desk.windows, &WindowList::lastClosed);
        desk.answer(QMessageBox::No);
        desk.entry("mnuFileClose")->trigger();
        QTRY_COMPARE(gone.count(), 1);
        QTRY_VERIFY(!desk.form);
        QVERIFY(desk.settings.values.contains("MainLeft"));
    }

    void aSecondCloseWhileTheFirstAsksDoesNotAskAgain()
    {
        Desk desk;
        desk.core().record.saveCheck = false;
        Questions questions(desk.windows, [&](FrmMain& asked) {
            QCloseEvent again; // `close()` itself would not send a second one
            QCoreApplication::sendEvent(&asked.form(), &again);
            return QMessageBox::Cancel;
        });
        QVERIFY(!desk.form->close());
        QCoreApplication::processEvents();
        QCOMPARE(questions.asked.size(), 1);
        QVERIFY(desk.form->isVisible());
    }

    void aBusyWindowClosesOnceItsCommandHasEnded()
    {
        Desk desk;
        bool closedMeanwhile = true;
        desk.toolkit().askForFile = [&](QWidget*, const FileDialog&, bool) -> std::optional<ChosenFile> {
            closedMeanwhile = desk.form->close();
            desk.entry("mnuFileOpen")->trigger(); // dropped: the window is busy
            return {};
        };
        desk.entry("mnuFileOpen")->trigger();
        QVERIFY(!closedMeanwhile);
        QTRY_VERIFY(!desk.form);
    }

    void aWindowBlockedByItsColumnSetupClosesWhenItIsAskedToWhileThatSaysWhatIsWrong()
    {
        Desk desk;
        desk.open(TARVELINT_SAMPLE);
        desk.tick("turboCheck");
        desk.type("vpdBox", "99"); // the sample has 13 columns
        whenShown<QMessageBox>(*desk.find("labelForm"), "messageBox", [&](QMessageBox&) { desk.window->unload(); });
        desk.click("OKButton");
        QTRY_VERIFY(!desk.form);
    }

    void newWindowsHaveTitlesOfTheirOwnAndExitClosesThemAll()
    {
        Desk desk;
        desk.entry("mnuFileNew")->trigger();
        desk.entry("mnuFileNew")->trigger();
        const auto windows = desk.windows.mainWindows();
        QCOMPARE(windows.size(), std::size_t{3});
        QCOMPARE(windows[1]->form().windowTitle(), QStringLiteral("Tarvelint 1"));
        QCOMPARE(windows[2]->form().windowTitle(), QStringLiteral("Tarvelint 2"));
        QSignalSpy gone(&desk.windows, &WindowList::lastClosed);
        windows[1]->form().findChild<QAction*>(QStringLiteral("mnuFileExit"))->trigger();
        QTRY_COMPARE(gone.count(), 1);
    }

    void exitAsksEveryUnsavedWindowLastOpenedFirstAndCancelStopsOnlyTheOne()
    {
        Desk desk;
        desk.windows.newWindow();
        desk.windows.newWindow();
        const auto opened = desk.windows.mainWindows();
        for (const std::size_t unsaved : {0U, 1U}) opened[unsaved]->core().record.saveCheck = false;
        Questions questions(
            desk.windows, [&](FrmMain& asked) { return &asked == opened[1] ? QMessageBox::Cancel : QMessageBox::No; });
        opened[2]->form().findChild<QAction*>(QStringLiteral("mnuFileExit"))->trigger();
        QTRY_VERIFY(desk.windows.mainWindows() == std::vector<FrmMain*>{opened[1]});
        QCOMPARE(questions.asked, (QStringList{QStringLiteral("Tarvelint 1"), QStringLiteral("Tarvelint")}));
        QCOMPARE(questions.titles, (QStringList{QStringLiteral("Close window:"), QStringLiteral("Close window:")}));
    }

    void captionsOfOtherFormsIncludeDialogs()
    {
        Desk desk;
        desk.open(TARVELINT_SAMPLE);
        desk.windows.newWindow();
        const std::vector<std::string> others = desk.windows.otherCaptions(desk.core());
        QCOMPARE(others, (std::vector<std::string>{"Labels", "Tarvelint"}));
    }

    void aMaximisedWindowStoresTheGeometryItHasThen()
    {
        Desk desk;
        desk.form->setWindowState(Qt::WindowMaximized);
        desk.form->windowHandle()->setGeometry(0, 0, 1600, 1200); // as a window manager does; there is none here
        QTRY_COMPARE(desk.form->size(), QSize(1600, 1200));
        QVERIFY(desk.form->isMaximized() && desk.form->normalGeometry().size() != desk.form->size());
        QVERIFY(desk.form->close());
        QCOMPARE(desk.settings.values["MainWidth"], std::string("24000")); // 15 twips to a pixel
        QCOMPARE(desk.settings.values["MainHeight"], std::string("18000"));
    }

    void aMinimisedWindowStoresNoGeometryThoughItsQuestionBringsItBack()
    {
        Desk desk;
        desk.core().record.saveCheck = false;
        desk.form->setWindowState(Qt::WindowMinimized);
        desk.settings.values.clear();
        bool wasSeen = false;
        desk.onBox([&](QMessageBox& box) {
            wasSeen = !desk.form->isMinimized();
            QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
        });
        QVERIFY(!desk.form->close());
        QVERIFY(wasSeen);
        QVERIFY(desk.settings.values.contains("ZoomFactor")); // the settings are written, the window stays
        QVERIFY(!desk.settings.values.contains("MainLeft"));
        QVERIFY(!desk.form->isMinimized());
        desk.answer(QMessageBox::No); // and by now it is not minimised
        QVERIFY(desk.form->close());
        QVERIFY(desk.settings.values.contains("MainLeft"));
    }

    void aMaximisedWindowIsMaximisedAgainWhenAQuestionBringsItBack()
    {
        Desk desk;
        desk.core().record.saveCheck = false;
        desk.form->setWindowState(Qt::WindowMaximized | Qt::WindowMinimized);
        desk.answer(QMessageBox::Cancel);
        QVERIFY(!desk.form->close());
        QVERIFY(desk.form->isMaximized());
        QVERIFY(!desk.form->isMinimized());
    }

    void exitCancelsTheQuestionOfAnotherWindow()
    {
        Desk desk;
        desk.openSample();
        desk.entry("mnuFileNew")->trigger();
        MainForm& other = desk.windows.mainWindows().back()->form();
        QSignalSpy gone(&desk.windows, &WindowList::lastClosed);
        desk.onBox([&](QMessageBox& box) {
            other.findChild<QAction*>(QStringLiteral("mnuFileExit"))->trigger();
            QVERIFY(!box.isVisible());
            desk.answer(QMessageBox::No); // the window goes once its first close has unwound, and asks then
        });
        QVERIFY(!desk.form->close());
        QTRY_COMPARE(gone.count(), 1);
        QTRY_VERIFY(!desk.form);
    }

    void aWindowPlacedOffEveryScreenComesOntoOne()
    {
        Desk desk(false);
        desk.toolkit().setGeometry(Geometry{300000, 300000, 9000, 9000});
        const Geometry place = desk.toolkit().geometry();
        QCOMPARE(place,
                 (Geometry{(1600 - 600) * 15, (1200 - 600) * 15, 9000, 9000})); // the screen has 1600 x 1200 pixels
    }

    void whatIsSavedCanBeOpenedAgain()
    {
        Desk desk;
        desk.openSample();
        const double flux = desk.core().record.values(kConverted, kS1, 700);
        const QString path = desk.folder.filePath(QStringLiteral("flux.csv"));
        desk.chooseFile(path.toStdString());
        QTimer::singleShot(0, desk.form, [&] { click(*desk.find("FileTypeFrm"), "OKButton"); });
        desk.entry("mnuFileSave")->trigger();
        QVERIFY(QFile::exists(path));
        QVERIFY(desk.core().record.saveCheck);
        QVERIFY(desk.form->windowTitle().endsWith(path));
        desk.open(path.toStdString());
        QVERIFY(desk.core().record.saveCheck);
        QVERIFY(std::abs(desk.core().record.values(kConverted, kS1, 700) - flux) < 1e-9);
    }

    void theAboutBoxShowsNoSecondWindow()
    {
        Desk desk;
        desk.entry("mnuHelpAbout")->trigger();
        auto* about = desk.form->findChild<FrmSplash*>();
        QVERIFY(about && about->isVisible());
        QCOMPARE(about->tagText, QStringLiteral("1"));
        about->close();
        QTRY_VERIFY(desk.form->findChildren<FrmSplash*>().isEmpty());
        QCOMPARE(desk.windows.mainWindows().size(), std::size_t{1});
    }

    void theAboutBoxsOwnButtonClosesIt()
    {
        Desk desk;
        desk.entry("mnuHelpAbout")->trigger();
        QTest::mouseClick(desk.find<QPushButton>("Command1"), Qt::LeftButton);
        QTRY_VERIFY(desk.form->findChildren<FrmSplash*>().isEmpty());
        QCOMPARE(desk.windows.mainWindows().size(), std::size_t{1});
        QVERIFY(desk.form->isVisible());
    }

    void theAboutBoxsButtonBringsNoDataWindowOnceTheProgramRuns()
    {
        const QTemporaryDir home;
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
        StartUp startUp;
        startUp.Main();
        startUp.showMainForm();
        MainForm& first = startUp.windows().mainWindows().front()->form();
        QVERIFY(QTest::qWaitForWindowExposed(&first));
        MainForm& second = startUp.windows().create().form(); // hidden, as the first was behind the splash
        first.findChild<QAction*>(QStringLiteral("mnuHelpAbout"))->trigger();
        auto* about = first.findChild<FrmSplash*>();
        click(*about, "Command1");
        QTRY_VERIFY(!first.findChild<FrmSplash*>());
        QVERIFY(first.isVisible() && !second.isVisible());
        QCOMPARE(startUp.windows().mainWindows().size(), std::size_t{2});
    }

    void aSettingsFileThatCannotBeReadIsToldOnce()
    {
        const QTemporaryDir home;
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
        QVERIFY(QDir(home.path()).mkpath(QStringLiteral("Tarvelint/Tarvelint.ini"))); // a folder where the file belongs
        StartUp startUp;
        startUp.Main();
        MainForm* first = &startUp.windows().mainWindows().front()->form();
        QString said;
        whenShown<QMessageBox>(*first, "messageBox", [&](QMessageBox& box) {
            said = box.text();
            box.accept();
        });
        startUp.showMainForm();
        QVERIFY2(said.contains(QStringLiteral("Tarvelint.ini")), qPrintable(said));
    }

    void theFirstWindowWaitsForTheSplash()
    {
        const QTemporaryDir home;
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
        StartUp startUp;
        startUp.Main();
        MainForm* first = &startUp.windows().mainWindows().front()->form();
        QVERIFY(!first->isVisible());
        QCOMPARE(first->windowTitle(), QStringLiteral("Tarvelint"));
        for (QWidget* top : QApplication::topLevelWidgets())
            if (auto* splash = qobject_cast<FrmSplash*>(top)) splash->close();
        QVERIFY(first->isVisible());
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::WindowLifeTest)
#include "window_life_test.moc"
