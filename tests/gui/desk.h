// SPDX-License-Identifier: MIT
#pragma once

#include "app/qt/frm_main.h"
#include "app/qt/plot_area.h"
#include "app/qt/plot_surface.h"
#include "app/qt/window_list.h"
#include "machine/files.h"
#include "support/doubles.h"
#include "when_shown.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPalette>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <string>
#include <utility>

namespace tarvelint::test {

/// A desk with one data window on it: real widgets and files, settings of its own.
class Desk : public QObject {
public:
    explicit Desk(bool shown = true)
    {
        window = &windows.create();
        form = &window->form();
        toolkit().askForFile = [](QWidget*, const FileDialog&, bool) -> std::optional<ChosenFile> {
            qFatal("unexpected file dialog");
            return {};
        };
        if (!shown) return;
        form->show();
        if (!QTest::qWaitForWindowExposed(form)) qFatal("the window does not come up");
    }

    template <class W = QWidget>
    [[nodiscard]] W* find(const char* name) const
    {
        auto* found = form->findChild<W*>(QString::fromLatin1(name));
        if (!found) qFatal("no %s", name);
        return found;
    }
    [[nodiscard]] QAction* entry(const char* name) const { return find<QAction>(name); }
    [[nodiscard]] QString text(const char* label) const { return find<QLabel>(label)->text(); }
    [[nodiscard]] Engine& core() const { return window->core(); }
    [[nodiscard]] QtToolkit& toolkit() const { return window->toolkit(); }
    void command(const std::function<void()>& body) const { window->command(body); }
    [[nodiscard]] QImage plot(int index) const
    {
        return find(index == 0 ? "Picture1_0" : "Picture1_1")->grab().toImage();
    }
    void click(const char* name) const { QTest::mouseClick(find(name), Qt::LeftButton); }
    /// Beside the text, boxes take clicks only at their left end.
    void tick(const char* name) const
    {
        auto* box = find<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    }
    void type(const char* name, const char* text) const
    {
        auto* box = find<QLineEdit>(name);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QString::fromLatin1(text));
    }

    /// Answers the next message box of the window and keeps what it said.
    void answer(QMessageBox::StandardButton button)
    {
        onBox([button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
    }
    void onBox(std::function<void(QMessageBox&)> play)
    {
        whenShown<QMessageBox>(*form, "messageBox", [this, play = std::move(play)](QMessageBox& box) {
            title = box.windowTitle();
            said = box.text();
            play(box);
        });
    }

    void chooseFile(const std::string& path, FileType type = FileType::comma)
    {
        toolkit().askForFile = [path, type](QWidget*, const FileDialog&, bool) { return ChosenFile{path, type}; };
    }
    /// File > Open; a headerless file leaves its column setup dialog open.
    void open(const std::string& path)
    {
        chooseFile(path);
        entry("mnuFileOpen")->trigger();
    }
    /// The sample as a user prepares it: the first five columns are parameters, zero flow is found from VPD and PAR.
    void openSample()
    {
        open(TARVELINT_SAMPLE);
        for (const char* mark : {"checkBox1", "checkBox2", "checkBox3", "checkBox4", "checkBox5"}) tick(mark);
        tick("turboCheck");
        type("vpdBox", "4");
        type("parBox", "3");
        click("OKButton");
    }
    /// Sensor 1 of the sample, chosen by hand.
    void chooseFirstSensor(int list = 0) const
    {
        auto* combo = find<QComboBox>(list == 0 ? "varList0" : "varList1");
        combo->setFocus();
        QTest::keyClicks(combo, QStringLiteral("S1"));
    }

    MemorySettings settings;
    FixedStyle style;
    DiskFiles files;
    ManualClock clock; ///< stands still: a loop pauses for events where a test makes time pass
    StringTable table;
    WindowList windows{Environment{settings, style, files, clock}, table};
    QTemporaryDir folder;
    QPointer<FrmMain> window;
    QPointer<MainForm> form;
    QString title; ///< of the last message box
    QString said;
};

/// The program under a palette of light text on black, until the test ends.
class DarkTheme {
public:
    DarkTheme()
    {
        QApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::gray, Qt::black, Qt::darkGray, Qt::white, Qt::white,
                                          Qt::black, Qt::black));
    }
    ~DarkTheme() { QApplication::setPalette(m_before); }
    DarkTheme(const DarkTheme&) = delete;
    DarkTheme& operator=(const DarkTheme&) = delete;

private:
    QPalette m_before = QApplication::palette();
};

/// The colour of a device-independent pixel.
inline QColor at(const QImage& image, double x, double y)
{
    const double ratio = image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
}

/// Whether a colour occurs within one pixel of a place: where a line of integers runs is the rasteriser's choice.
inline bool near(const QImage& image, double x, double y, QColor color)
{
    for (int dx = -1; dx <= 1; ++dx)
        for (int dy = -1; dy <= 1; ++dy)
            if (image.rect().contains(QPoint(int(x) + dx, int(y) + dy)) && at(image, x + dx, y + dy) == color)
                return true;
    return false;
}

} // namespace tarvelint::test
