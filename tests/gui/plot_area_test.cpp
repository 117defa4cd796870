// SPDX-License-Identifier: MIT
#include "desk.h"

#include <QRegularExpression>
#include <QScrollBar>

#include <array>
#include <fstream>

namespace tarvelint::test {

namespace {

/// A desk with a record of day, time and one sensor in both areas, day in the companion.
class PlottedDesk : public Desk {
public:
    explicit PlottedDesk(bool shown = true) : Desk(shown)
    {
        const std::string path = folder.filePath(QStringLiteral("record.csv")).toStdString();
        std::ofstream file(path, std::ios::binary);
        file
            << "Tarvelint output: today,unconverted,3 columns,3000 rows each,with labels,blank='.'\r\nDay,Time,S1,\r\n";
        for (int row = 0; row < 3000; ++row) file << row / 48 + 1 << ',' << row % 48 << ',' << 8 + row % 5 << ",\r\n";
        file.close();
        open(path);
        command([this] {
            core().lists.choose(0, 2);
            core().lists.choose(1, 0);
        });
        if (!shown) form->grab(); // lays the window out, so that its showing changes no size
        keepDrawing();
    }
    void keepDrawing() { m_drawn = {pixels(0), pixels(1)}; }
    void spoil()
    {
        for (int index = 0; index < 2; ++index) {
            Surface& area = toolkit().surface(index);
            area.filledBox(0, 0, area.scaleWidth(), area.scaleHeight(), colors::kBlue);
        }
        if (isDrawn(0) || isDrawn(1)) qFatal("nothing spoilt");
    }
    [[nodiscard]] bool isDrawn(int index) const { return pixels(index) == m_drawn[static_cast<std::size_t>(index)]; }

    int resizes = 0; ///< of either area, each of which draws too

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        resizes += event->type() == QEvent::Resize;
        return false;
    }

private:
    /// Without `grab`, which may lay a hidden window out anew.
    [[nodiscard]] QImage pixels(int index) const
    {
        return find<PlotArea>(index == 0 ? "Picture1_0" : "Picture1_1")->surface().pixels().copy();
    }

    std::array<QImage, 2> m_drawn;
};

const QColor kGround = QColor(PlotSurface::kBackground);

} // namespace

class PlotAreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theFirstShowingDrawsBothAreas()
    {
        PlottedDesk desk(false);
        desk.spoil();
        for (const char* area : {"Picture1_0", "Picture1_1"}) desk.find(area)->installEventFilter(&desk);
        desk.form->show();
        QTRY_VERIFY(desk.isDrawn(0));
        QTRY_VERIFY(desk.isDrawn(1));
        QCOMPARE(desk.resizes, 0);
    }

    void theReturnFromMinimisedDrawsBothAreas()
    {
        PlottedDesk desk;
        desk.form->showMinimized();
        desk.spoil();
        desk.form->showNormal();
        QTRY_VERIFY(desk.isDrawn(0));
        QTRY_VERIFY(desk.isDrawn(1));
    }

    void aChangeOfScaleOfEitherAreaDrawsBoth()
    {
        PlottedDesk desk;
        for (const char* area : {"Picture1_0", "Picture1_1"}) {
            desk.spoil();
            Q_EMIT desk.find<PlotArea>(area)->scaleChanged();
            QVERIFY2(desk.isDrawn(0), area);
            QVERIFY2(desk.isDrawn(1), area);
        }
    }

    void theBackgroundIsTheProgramsOwnUnderADarkThemeToo()
    {
        const DarkTheme dark;
        Desk empty;
        QCOMPARE(at(empty.form->grab().toImage(), 2, 60), QColor(Qt::black)); // the window follows the theme
        for (const int index : {0, 1}) QCOMPARE(at(empty.plot(index), 9, 9), kGround);
        PlottedDesk desk;
        for (const int index : {0, 1}) {
            QCOMPARE(at(desk.plot(index), 9, 1), kGround); // above the highest value
            desk.toolkit().surface(index).erase();
            QCOMPARE(at(desk.plot(index), 9, 9), kGround);
        }
    }

    void lettingGoOfTheThumbDrawsTheMainAreaLastAndGivesItTheFocus()
    {
        PlottedDesk desk;
        auto* bar = desk.find<QScrollBar>("HScroll1");
        auto* box = desk.find<QLineEdit>("maxLabel0");
        box->setFocus();
        const QPoint thumb(bar->height() + 10, bar->height() / 2); // beside the arrow
        QTest::mousePress(bar, Qt::LeftButton, {}, thumb);
        QTest::mouseMove(bar, thumb + QPoint(60, 0));
        QVERIFY(desk.core().view.HScroll1.Value > 0);
        QCOMPARE(desk.form->focusWidget(), box);
        desk.keepDrawing();
        const double scaleOfCompanion = desk.core().view.yScale; // the area drawn last leaves its scale
        desk.spoil();
        QTest::mouseRelease(bar, Qt::LeftButton, {}, thumb + QPoint(60, 0));
        QVERIFY(desk.isDrawn(0));
        QVERIFY(desk.isDrawn(1));
        QCOMPARE(desk.form->focusWidget(), desk.find("Picture1_0"));
        // Readings run from 8 to 12: their range of 4 takes the height over 1.1.
        QCOMPARE(desk.core().view.yScale, desk.find("Picture1_0")->height() / 4.4);
        QVERIFY(desk.core().view.yScale != scaleOfCompanion);
    }

    void aColumnPickedWhileTheWindowIsBusyIsNotTakenNorShown()
    {
        PlottedDesk desk;
        auto* list = desk.find<QComboBox>("varList0");
        bool wasAsked = false;
        desk.toolkit().askForFile = [&](QWidget*, const FileDialog&, bool) -> std::optional<ChosenFile> {
            wasAsked = true;
            QTest::keyClick(list, Qt::Key_Up);
            return {};
        };
        desk.entry("mnuFileOpen")->trigger();
        QVERIFY(wasAsked);
        QCOMPARE(desk.core().view.chosenColumn[0], 2);
        QCOMPARE(list->currentIndex(), 2);
        QTest::keyClick(list, Qt::Key_Up); // and now it is
        QCOMPARE(desk.core().view.chosenColumn[0], 1);
    }

    void theTipOfAColumnIsItsWholeLabelAsItStands()
    {
        Desk desk;
        desk.openSample();
        desk.command([&] {
            desk.core().lists.updateLabels(
                {"Day", "PAR <b>sum</b> & mean", "", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13"});
        });
        auto* list = desk.find<QComboBox>("varList0");
        const auto tip = [list](int entry) { return list->itemData(entry, Qt::ToolTipRole).toString(); };
        QCOMPARE(tip(1), QStringLiteral("<qt>PAR &lt;b&gt;sum&lt;/b&gt; &amp; mean</qt>"));
        QCOMPARE(tip(2), QString()); // no label, no tip
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(list->currentIndex(), 1);
        QCOMPARE(list->toolTip(), tip(1));
        QCOMPARE(list->accessibleDescription(), QStringLiteral("PAR <b>sum</b> & mean"));
        desk.tick("labelBox");
        QCOMPARE(list->itemText(1), QStringLiteral("2"));
        QCOMPARE(tip(1), list->toolTip()); // a number's too
    }
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::PlotAreaTest)
#include "plot_area_test.moc"
