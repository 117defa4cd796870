// SPDX-License-Identifier: MIT
#include "app/command_table.h"
#include "app/qt/form_parts.h"
#include "app/qt/program_style.h"
#include "desk.h"
#include "view/window_layout.h"

#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>

#include <algorithm>
#include <map>
#include <memory>
#include <set>

namespace tarvelint::test {

namespace {

QRect rectOf(const PixelRect& place)
{
    return {place.left, place.top, place.width, place.height};
}

QString nameOf(const PlacedControl& control)
{
    return QString::fromLatin1(control.name.data(), qsizetype(control.name.size()));
}

/// The sample on the form at one of the sizes, with all cues filled.
class LaidOutDesk : public Desk {
public:
    explicit LaidOutDesk(const QSize& size = {1280, 800})
    {
        openSample();
        chooseFirstSensor(0);
        chooseFirstSensor(1);
        entry("mnuEditSelectAll")->trigger();
        giveSize(size);
    }

    void giveSize(const QSize& size) const
    {
        form->resize(size);
        if (!QTest::qWaitFor([&] { return form->size() == size; })) qFatal("the window does not get its size");
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QWidget* area() const { return form->centralWidget(); }
    [[nodiscard]] QWidget* frame() const { return find("Frame1"); }
    [[nodiscard]] std::vector<PlacedControl> places() const { return placeControls(area()->width(), area()->height()); }
    /// What the user sees in the area and in the frame, one beside the other.
    [[nodiscard]] static QList<QWidget*> shownIn(const QWidget& owner)
    {
        auto children = owner.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        children.removeIf([](const QWidget* child) { return !child->isVisible() || child->isWindow(); });
        return children;
    }
    [[nodiscard]] QList<QWidget*> shown() const { return shownIn(*area()) + shownIn(*frame()); }
    [[nodiscard]] std::map<QString, QRect> rectangles() const
    {
        std::map<QString, QRect> found;
        for (const PlacedControl& control : places()) {
            const auto* widget = area()->findChild<QWidget*>(nameOf(control));
            found.emplace(nameOf(control), widget ? widget->geometry() : QRect());
        }
        return found;
    }
};

/// Where text may stand, by what the style in force leaves of the widget.
QRect textRoom(const QLabel& label)
{
    return label.contentsRect();
}

QRect textRoom(const QPushButton& button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    return button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
}

QRect textRoom(const QCheckBox& box)
{
    QStyleOptionButton option;
    option.initFrom(&box);
    const int mark = box.style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, &box) +
                     box.style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, &option, &box);
    return box.rect().adjusted(mark, 0, 0, 0);
}

QRect textRoom(const QLineEdit& box)
{
    constexpr int kMargin = 2; // the toolkit's own, at either end
    QStyleOptionFrame option;
    option.initFrom(&box);
    option.lineWidth = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box);
    return box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box).adjusted(kMargin, 0, -kMargin, 0);
}

int widthOf(const QWidget& widget, const QString& text)
{
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

/// Letters of any kind, with what hangs below the line.
int heightOfLetters(const QWidget& widget)
{
    return widget.fontMetrics().ascent() + widget.fontMetrics().descent();
}

/// The boxes hold numbers only, which are lower: twice as far as a digit reaches from the middle of its centred line.
int heightOfNumbers(const QWidget& widget)
{
    const QFontMetrics metrics = widget.fontMetrics();
    const QRect digits = metrics.tightBoundingRect(QStringLiteral("-0123456789.,"));
    const int top = metrics.ascent() + digits.top();
    const int bottom = metrics.height() - top - digits.height();
    return metrics.height() - 2 * std::min(top, bottom);
}

/// "name "text": needed in there", for each control whose text has no room.
QStringList textsWithoutRoom(const LaidOutDesk& desk)
{
    QStringList found;
    const auto words = [](const QSize& size) { return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()); };
    const auto expect = [&](const QWidget& widget, const QString& text, int height, const QRect& room) {
        const QSize needed(widthOf(widget, text), height);
        if (needed.boundedTo(room.size()) == needed) return;
        found.append(
            QStringLiteral("%1 \"%2\": %3 in %4").arg(widget.objectName(), text, words(needed), words(room.size())));
    };
    for (const QWidget* widget : desk.shown()) {
        const int letters = heightOfLetters(*widget);
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            expect(*label, label->text(), letters, textRoom(*label));
        else if (const auto* button = qobject_cast<const QPushButton*>(widget))
            expect(*button, button->text(), letters, textRoom(*button));
        else if (const auto* check = qobject_cast<const QCheckBox*>(widget))
            expect(*check, check->text(), letters, textRoom(*check));
        else if (const auto* box = qobject_cast<const QLineEdit*>(widget))
            expect(*box, QStringLiteral("1900.0000"), heightOfNumbers(*box), textRoom(*box));
    }
    return found;
}

/// Where `PlotsFrame` marks a plot: left of it.
QRgb besidePlot(const LaidOutDesk& desk, const char* plot)
{
    const QRect place = desk.find(plot)->geometry();
    return at(desk.frame()->grab().toImage(), place.left() - 1, place.center().y()).rgb();
}

bool isDark()
{
    return qEnvironmentVariableIsSet("TARVELINT_DARK");
}

} // namespace

/// Started on screens of scale 1 and 2, under another desktop's theme and with a dark palette.
class LayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useProgramStyle();
        if (isDark()) m_dark = std::make_unique<DarkTheme>();
    }
    void cleanupTestCase() { m_dark.reset(); }
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void theScreenHasRoomForTheLargestWindow()
    {
        const QSize screen = QGuiApplication::primaryScreen()->size();
        QVERIFY(screen.width() >= 2560);
        QVERIFY(screen.height() >= 1440);
    }

    void noTwoControlsOverlap_data() { addSizes(); }
    void noTwoControlsOverlap()
    {
        QFETCH(QSize, size);
        const LaidOutDesk desk(size);
        for (const QWidget* owner : {desk.area(), desk.frame(), desk.find("sbStatusBar"), desk.find("tbToolBar")}) {
            const auto children = LaidOutDesk::shownIn(*owner);
            QVERIFY(children.size() > 1);
            for (const QWidget* one : children)
                for (const QWidget* other : children)
                    QVERIFY2(one == other || !one->geometry().intersects(other->geometry()),
                             qPrintable(one->objectName() + QStringLiteral(" and ") + other->objectName()));
        }
    }

    void everyTextHasRoom_data() { addSizes(); }
    void everyTextHasRoom()
    {
        QFETCH(QSize, size);
        const LaidOutDesk desk(size);
        QCOMPARE(textsWithoutRoom(desk).join(u'\n'), QString());
    }

    void aControlTooLowOrNarrowForItsTextIsFound()
    {
        const LaidOutDesk desk;
        for (const char* name : {"mainTag", "viewButton", "labelBox", "maxLabel0"}) {
            QWidget* control = desk.find(name);
            const QSize size = control->size();
            for (const QSize& small : {QSize(size.width(), 9), QSize(16, size.height())}) {
                control->resize(small);
                const QStringList found = textsWithoutRoom(desk);
                QCOMPARE(found.size(), 1);
                QVERIFY2(found.front().startsWith(QLatin1String(name)), qPrintable(found.front()));
            }
            control->resize(size);
        }
    }

    void everyControlStandsWhereItsRulePutsIt_data() { addSizes(); }
    void everyControlStandsWhereItsRulePutsIt()
    {
        QFETCH(QSize, size);
        const LaidOutDesk desk(size);
        for (const PlacedControl& control : desk.places()) {
            const auto* widget = desk.find(qPrintable(nameOf(control)));
            QCOMPARE(widget->parentWidget(), control.isInFrame ? desk.frame() : desk.area());
            QVERIFY2(widget->geometry() == rectOf(control.place), qPrintable(nameOf(control)));
            QVERIFY2(widget->isVisible() == control.isShown, qPrintable(nameOf(control)));
        }
    }

    void everyControlThatIsSeenHasARule()
    {
        const LaidOutDesk desk;
        std::set<QString> placed;
        for (const PlacedControl& control : desk.places()) placed.insert(nameOf(control));
        for (const QWidget* widget : desk.shown())
            QVERIFY2(placed.contains(widget->objectName()), qPrintable(widget->objectName()));
        for (const ControlRow& row : controlTable()) {
            const QWidget* widget = desk.find(row.name);
            QVERIFY2(widget->parentWidget() == desk.find("sbStatusBar") || placed.contains(QLatin1String(row.name)),
                     row.name);
        }
    }

    void minimisingChangesNoControl()
    {
        const LaidOutDesk desk;
        const auto before = desk.rectangles();
        const auto bar = desk.core().view.HScroll1;
        desk.form->setWindowState(Qt::WindowMinimized);
        QCoreApplication::processEvents();
        QVERIFY(desk.rectangles() == before);
        QCOMPARE(desk.core().view.HScroll1.Max, bar.Max);
        desk.form->setWindowState(Qt::WindowNoState);
        QCoreApplication::processEvents();
        QVERIFY(desk.rectangles() == before);
    }

    void hidingABarMovesNothing_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::newRow("tool bar") << QStringLiteral("mnuViewToolbar");
        QTest::newRow("status bar") << QStringLiteral("mnuViewStatusBar");
    }
    void hidingABarMovesNothing()
    {
        QFETCH(QString, entry);
        const LaidOutDesk desk;
        const auto before = desk.rectangles();
        const auto shown = desk.shown().size();
        desk.entry(qPrintable(entry))->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown().size(), shown - 1);
        QVERIFY(desk.rectangles() == before);
        desk.giveSize({1281, 801}); // nor does it come back with a resize
        QCOMPARE(desk.shown().size(), shown - 1);
    }

    void afterAResizeTheLastRowIsWithinReach_data() { addSizes(); }
    void afterAResizeTheLastRowIsWithinReach()
    {
        QFETCH(QSize, size);
        const LaidOutDesk desk({900, 600});
        for (int i = 0; i < 2; ++i) desk.entry("mnuViewZoomIn")->trigger();
        desk.giveSize(size);
        auto* bar = desk.find<QScrollBar>("HScroll1");
        // The sample's 1440 rows of 4 pixels each are wider than any of the plots.
        const int rowsShown = desk.find("Picture1_0")->width() / 4;
        QVERIFY(std::abs(bar->maximum() - (1440 - rowsShown - 1)) <= 1);
        desk.command([&] { desk.core().setScrollValue(bar->maximum()); });
        QCOMPARE(bar->value(), bar->maximum());
        const int xOfLastRow = (1439 - bar->value()) * 4;
        QVERIFY(xOfLastRow <= desk.find("Picture1_0")->width() + 4); // a row's step beyond the edge, at most
    }

    void theTipOfAListIsTheWholeLabel()
    {
        LaidOutDesk desk;
        const std::string label = "Sap flow probe of the tall spruce beside the northern gate, 1.3 m";
        desk.command([&] {
            desk.core().record.labels[7] = label;
            desk.core().lists.choose(0, 7);
            desk.core().lists.choose(1, 7);
            for (int index = 0; index < 2; ++index) desk.toolkit().listChanged(index);
        });
        for (const char* list : {"varList0", "varList1"}) {
            const QString whole = QString::fromStdString(label);
            QVERIFY(widthOf(*desk.find(list), whole) > desk.find(list)->width());
            QVERIFY2(desk.find(list)->toolTip() == wholeTextTip(whole), list);
            QVERIFY2(desk.find(list)->toolTip().contains(whole), list);
        }
    }

    void theTipOfARangeBoxIsTheWholeNumber()
    {
        const LaidOutDesk desk;
        for (const char* name : {"maxLabel0", "minLabel0", "maxLabel1", "minLabel1"}) {
            auto* box = desk.find<QLineEdit>(name);
            QVERIFY(!box->text().isEmpty());
            QCOMPARE(box->toolTip(), wholeTextTip(box->text()));
            desk.type(name, "-123456789.1234");
            QCOMPARE(box->toolTip(), wholeTextTip(QStringLiteral("-123456789.1234")));
        }
    }

    void theTipOfTheEquationIsAllOfItWhereItIsTooLong()
    {
        const LaidOutDesk desk;
        auto* box = desk.find<QLabel>("FormulaBox");
        askForTip(*box);
        QVERIFY(!box->text().isEmpty());
        QCOMPARE(box->toolTip(), QString());
        std::string equation = "y=1";
        for (int i = 0; i < 30; ++i) equation += "+a<b/(x-1)";
        desk.command([&] { desk.core().setText(Control::FormulaBox, equation); });
        askForTip(*box);
        QCOMPARE(box->toolTip(), QStringLiteral("<qt>%1</qt>").arg(QString::fromStdString(equation).toHtmlEscaped()));
    }

    void aBarBesideAPlotShowsThatItHasTheFocus()
    {
        const LaidOutDesk desk;
        desk.form->activateWindow();
        QTRY_VERIFY(desk.form->isActiveWindow());
        const auto mark = [&] { return desk.frame()->palette().color(QPalette::Highlight).rgb(); };
        desk.find("maxLabel0")->setFocus();
        QVERIFY(besidePlot(desk, "Picture1_0") != mark());
        QVERIFY(besidePlot(desk, "Picture1_1") != mark());
        desk.find("Picture1_0")->setFocus();
        QCOMPARE(besidePlot(desk, "Picture1_0"), mark());
        QVERIFY(besidePlot(desk, "Picture1_1") != mark());
        desk.find("Picture1_1")->setFocus();
        QVERIFY(besidePlot(desk, "Picture1_0") != mark());
        QCOMPARE(besidePlot(desk, "Picture1_1"), mark());
    }

    void aLineSeparatesTheMainPlotFromTheCompanion()
    {
        const LaidOutDesk desk;
        for (int index = 0; index < 2; ++index) desk.toolkit().surface(index).erase();
        const QWidget* plot = desk.find("Picture1_0");
        const QRgb line = plot->palette().color(QPalette::Mid).rgb();
        const QColor ground(PlotSurface::kBackground);
        QVERIFY(line != ground.rgb());
        const QImage main = desk.plot(0);
        const double last = plot->height() - 0.5; // the middle of the last row, whatever the scale of the screen
        for (int x = 0; x < plot->width(); ++x) {
            QCOMPARE(at(main, x, last).rgb(), line);
            QCOMPARE(at(main, x, last - 1), ground);
        }
        QCOMPARE(at(desk.plot(1), 9, last), ground); // the companion's last row is its own
    }

private:
    static void addSizes()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("least") << QSize(kLeastWidth, kLeastHeight);
        QTest::newRow("usual") << QSize(1280, 800);
        QTest::newRow("large") << QSize(2560, 1440);
    }

    std::unique_ptr<DarkTheme> m_dark;
};

} // namespace tarvelint::test

QTEST_MAIN(tarvelint::test::LayoutTest)
#include "layout_test.moc"
