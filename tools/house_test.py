#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests of what tools/check_floors.py finds and of what tools/draw_house.py draws, on small houses."""
import sys
import unittest
import xml.etree.ElementTree
from pathlib import Path
from tempfile import TemporaryDirectory

sys.dont_write_bytecode = True

from house import floors, includes, libraries, picture  # noqa: E402
from house.floors import CLI, POSIX, QT, QT_CORE, Floor  # noqa: E402

TABLE = (
    Floor("data", "the readings"),
    Floor("clock", "the time", ("data",), (QT_CORE, POSIX)),
    Floor("edit", "work", ("data",)),
    Floor("view", "work", ("data",)),
    Floor("batch", "a program", ("data",), (CLI,)),
    Floor("app", "commands", ("data", "edit", "view")),
    Floor("app/qt", "windows", ("data", "clock", "edit", "view", "app"), (QT,)),
)
FILES = {
    "data/data.h": "#pragma once\n#include <vector>\n",
    "data/data.cpp": '#include "data/data.h"\n',
    "clock/clock.cpp": '#include "data/data.h"\n#include <QDate>\n#include <QtCore/QTime>\n#include <sys/stat.h>\n',
    "edit/edit.h": '#include "data/data.h"\n',
    "edit/edit.cpp": '#include "edit/edit.h"\n',
    "view/view.h": "",
    "view/view.cpp": '#include "view/view.h"\n#include "data/data.h"\n',
    "batch/main.cpp": "#include <CLI/CLI.hpp>\n",
    "batch/run.cpp": '#include "data/data.h"\n',
    "app/app.h": '#include "edit/edit.h"\n#include "view/view.h"\n#include "data/data.h"\n',
    "app/app.cpp": '#include "app/app.h"\n',
    "app/qt/main.cpp": '#include "app/app.h"\n#include <QApplication>\n#include <QtSvg/QSvgRenderer>\n',
    "CMakeLists.txt": """
        function(tarvelint_floor name)
          add_library(tarvelint_${name} STATIC ${arg_SOURCES})
          target_link_libraries(tarvelint_${name} PRIVATE tarvelint_options PUBLIC ${arg_KNOWS})
        endfunction()
        tarvelint_floor(data SOURCES  # not (yet) app/app.cpp
          data/data.cpp)
        tarvelint_floor(edit KNOWS tarvelint_data SOURCES edit/edit.cpp)
        tarvelint_floor(view KNOWS tarvelint_data SOURCES view/view.cpp)
        tarvelint_floor(app KNOWS tarvelint_edit tarvelint_view SOURCES app/app.cpp)
        add_library(tarvelint_core INTERFACE)
        target_link_libraries(tarvelint_core INTERFACE tarvelint_app)
        """,
    "clock/CMakeLists.txt": """
        add_library(clock STATIC clock.cpp)
        target_link_libraries(clock PRIVATE tarvelint_options PUBLIC tarvelint_data Qt6::Core)
        """,
    "batch/CMakeLists.txt": """
        add_library(run STATIC run.cpp)
        target_link_libraries(run PUBLIC tarvelint_data CLI11::CLI11)
        add_executable(batch main.cpp)
        target_link_libraries(batch PRIVATE run)
        """,
    "app/CMakeLists.txt": """
        add_library(widgets STATIC qt/main.cpp ${PROJECT_SOURCE_DIR}/icons.qrc)
        target_link_libraries(widgets PUBLIC tarvelint_core clock Qt6::Widgets)
        """,
}


PLACES = {"app/qt": (0, 100), "app": (0, 60), "clock": (75, 100), "edit": (0, 20), "view": (30, 50),
          "batch": (55, 70), "data": (0, 100)}


class SmallHouse(unittest.TestCase):
    def setUp(self):
        folder = TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.src = Path(folder.name) / "src"
        for name, text in FILES.items():
            self.write(name, text)

    def write(self, name, text):
        path = self.src / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def add(self, name, text):
        self.write(name, FILES[name] + text)

    def replace(self, name, old, new):
        self.assertEqual(FILES[name].count(old), 1)
        self.write(name, FILES[name].replace(old, new))


class Includes(SmallHouse):
    def faults(self):
        return includes.faults(self.src, TABLE)

    def assert_refused(self, file, line, said):
        self.add(file, line + "\n")
        number = FILES[file].count("\n") + 1
        self.assertEqual(self.faults(), [f"src/{file}:{number}: {said}"])

    def test_a_house_in_order_has_no_faults(self):
        self.assertEqual(self.faults(), [])

    def test_upwards(self):
        self.assert_refused("data/data.h", '#include "app/app.h"', 'data/ may not include app/ ("app/app.h")')

    def test_sideways(self):
        self.assert_refused("edit/edit.cpp", '#include "view/view.h"', 'edit/ may not include view/ ("view/view.h")')

    def test_a_folder_inside_a_folder_is_a_floor_of_its_own(self):
        self.write("app/qt/box.h", "")
        self.assert_refused("app/app.h", '#include "app/qt/box.h"', 'app/ may not include app/qt/ ("app/qt/box.h")')

    def test_another_spelling_of_the_same_file(self):
        for spelling in ('"../app/app.h"', "<app/app.h>", '"data/../app/app.h"', '"../data/.././app/app.h"'):
            with self.subTest(spelling):
                self.assert_refused("data/data.h", f"#include {spelling}", f"data/ may not include app/ ({spelling})")

    def test_another_spelling_of_the_directive(self):
        for directive in ("  #  include\t", "/* why */ #include ", "#/**/include", "#include_next ", "#import "):
            with self.subTest(directive):
                self.assert_refused("data/data.h", f'{directive}"app/app.h"',
                                    'data/ may not include app/ ("app/app.h")')

    def test_under_a_condition(self):
        self.add("data/data.h", '#ifdef SOMETHING\n#include "app/app.h"\n#endif\n')
        self.assertEqual(self.faults(), ['src/data/data.h:4: data/ may not include app/ ("app/app.h")'])

    def test_behind_a_character_that_other_programs_take_for_a_line_end(self):
        self.add("data/data.h", '// \u2028\f\n#include "app/app.h"\n')
        self.assertEqual(self.faults(), ['src/data/data.h:4: data/ may not include app/ ("app/app.h")'])

    def test_a_file_beside_the_including_one(self):
        self.add("data/data.cpp", '#include "data.h"\n')
        self.assertEqual(self.faults(), [])

    def test_a_comment_about_an_include(self):
        self.add("data/data.h", '// #include "app/app.h"\n')
        self.assertEqual(self.faults(), [])

    def test_qt_in_the_core(self):
        for header in ("<QString>", "<QtCore/QString>", "<QtGlobal>"):
            with self.subTest(header):
                self.write("view/view.cpp", FILES["view/view.cpp"] + f"#include {header}\n")
                self.assertEqual(len(self.faults()), 1)
                self.assertIn("view/ may not use Qt", self.faults()[0])

    def test_posix_and_the_command_line_in_the_core(self):
        self.assert_refused("edit/edit.h", "#include <unistd.h>", "edit/ may not use POSIX (<unistd.h>)")
        self.write("edit/edit.h", FILES["edit/edit.h"])
        self.assert_refused("app/app.cpp", "#include <CLI/CLI.hpp>", "app/ may not use CLI11 (<CLI/CLI.hpp>)")

    def test_other_qt_than_qt_core(self):
        self.assert_refused("clock/clock.cpp", "#include <QtWidgets/QWidget>",
                            "clock/ may not use Qt (<QtWidgets/QWidget>)")

    def test_what_nobody_knows(self):
        for name in ("<boost/any.hpp>", '"gone.h"', "<data/gone.h>", "SOME_MACRO", '"vector"'):
            with self.subTest(name):
                self.assert_refused("app/qt/main.cpp", f"#include {name}",
                                    f"{name} is no file of src/, and nothing from outside that the table knows")

    def test_a_folder_without_a_line_in_the_table(self):
        self.write("print/print.h", '#include "app/app.h"\n')
        self.assertEqual(self.faults(), ["src/print/ has no line in the floors' table"])

    def test_a_line_of_the_table_without_a_folder(self):
        (self.src / "edit/edit.cpp").unlink()
        (self.src / "edit/edit.h").rename(self.src / "view/edit.h")
        self.write("app/app.h", "")
        self.assertEqual(self.faults(), ["the floors' table has a line for src/edit/, where no C++ file is"])


class Libraries(SmallHouse):
    def assert_faults(self, *said):
        self.assertEqual(libraries.faults(self.src, TABLE), list(said))

    def test_a_house_in_order_has_no_faults(self):
        self.assert_faults()

    def test_a_source_that_no_list_names(self):
        self.write("edit/undo.cpp", "")
        self.assert_faults("src/edit/undo.cpp is named 0 times in the CMake lists, not once")

    def test_a_source_that_is_named_twice(self):
        self.replace("CMakeLists.txt", "edit/edit.cpp", "edit/edit.cpp edit/edit.cpp")
        self.assert_faults("src/edit/edit.cpp is named 2 times in the CMake lists, not once")

    def test_a_source_that_is_not_there(self):
        self.replace("CMakeLists.txt", "edit/edit.cpp", "edit/edit.cpp edit/gone.cpp")
        self.assert_faults("the CMake lists name src/edit/gone.cpp, which is not there")

    def test_a_source_in_the_library_of_another_folder(self):
        self.write("edit/undo.cpp", "")
        self.replace("CMakeLists.txt", "view/view.cpp", "view/view.cpp edit/undo.cpp")
        self.assert_faults("tarvelint_view has sources of more than one folder: edit, view",
                           "src/edit/ is cut into 2 libraries: tarvelint_edit, tarvelint_view")

    def test_a_folder_in_two_libraries(self):
        self.write("edit/undo.cpp", "")
        self.add("CMakeLists.txt", "tarvelint_floor(undo KNOWS tarvelint_data SOURCES edit/undo.cpp)")
        self.assert_faults("src/edit/ is cut into 2 libraries: tarvelint_edit, tarvelint_undo")

    def test_a_library_that_links_upwards(self):
        self.replace("CMakeLists.txt", "(data SOURCES", "(data KNOWS tarvelint_view SOURCES")
        self.assert_faults("tarvelint_data links tarvelint_view, but data/ may not include view/")

    def test_a_library_that_links_upwards_by_another_name(self):
        self.replace("batch/CMakeLists.txt", "CLI11::CLI11", "CLI11::CLI11 tarvelint_core")
        self.assert_faults(*[f"run links tarvelint_core, but batch/ may not include {folder}/"
                             for folder in ("app", "edit", "view")])

    def test_a_core_library_that_links_qt(self):
        self.replace("CMakeLists.txt", "edit KNOWS", "edit KNOWS Qt6::Core")
        self.assert_faults("tarvelint_edit links Qt6::Core, which edit/ may not use")

    def test_other_qt_than_qt_core(self):
        self.replace("clock/CMakeLists.txt", "Qt6::Core", "Qt6::Core Qt6::Widgets")
        self.assert_faults("clock links Qt6::Widgets, which clock/ may not use")

    def test_what_nobody_knows(self):
        self.add("app/CMakeLists.txt", "target_link_libraries(widgets PRIVATE curl)")
        self.assert_faults("widgets links curl, which app/qt/ may not use")

    def test_a_library_that_does_not_link_what_it_includes(self):
        self.replace("CMakeLists.txt", "edit KNOWS tarvelint_data", "edit")
        self.assert_faults("tarvelint_edit includes data/ and does not link its library")

    def test_a_header_that_includes_what_is_not_linked(self):
        self.replace("CMakeLists.txt", "KNOWS tarvelint_edit tarvelint_view", "KNOWS tarvelint_view")
        self.assert_faults("tarvelint_app includes edit/ and does not link its library")


class Picture(SmallHouse):
    def drawing(self, **other_places):
        return picture.Drawing(self.src, TABLE, PLACES | other_places)

    def arrows(self):
        return {(above, below) for above, belows in self.drawing().arrows.items() for below in belows}

    def elements(self, look):
        root = xml.etree.ElementTree.fromstring(picture.draw(self.src, TABLE, PLACES))
        return [element for element in root.iter() if look in element.get("class", "").split()]

    def test_every_folder_has_a_box_with_its_name(self):
        self.assertEqual(len(self.elements("box")), len(TABLE) + 2)  # two more explain the colours
        self.assertEqual([element.text for element in self.elements("name")],
                         ["app/qt/", "app/", "edit/", "view/", "batch/", "clock/", "data/"])

    def test_an_arrow_for_what_no_other_arrows_lead_to(self):
        self.assertEqual(self.arrows(), {("app/qt", "app"), ("app", "edit"), ("app", "view"), ("edit", "data"),
                                         ("view", "data"), ("batch", "data"), ("clock", "data")})
        self.assertEqual(len(self.elements("arrow")), 7)

    def test_what_other_arrows_lead_to_is_named(self):
        self.assertEqual([element.text for element in self.elements("also")], ["also data"])  # app, over edit and view

    def test_what_is_used_from_outside_is_named(self):
        self.assertEqual([element.text for element in self.elements("uses")],
                         ["uses Qt", "uses CLI11", "uses Qt Core, POSIX"])

    def test_a_new_include_of_a_folder_changes_the_picture(self):
        before = picture.draw(self.src, TABLE, PLACES)
        self.add("app/qt/main.cpp", "#include <string>\nint a;\n" + '#include "app/app.h"\n')
        self.assertEqual(picture.draw(self.src, TABLE, PLACES), before)
        self.add("app/qt/main.cpp", '#include "clock/clock.cpp"\n')
        self.assertNotEqual(picture.draw(self.src, TABLE, PLACES), before)
        self.assertIn(("app/qt", "clock"), self.arrows())

    def test_an_arrow_past_a_floor_runs_through_the_gap(self):
        # The picture goes from 40 to 1000: batch ends at 712 and clock starts at 760, each keeps 7 away.
        self.assertAlmostEqual(self.drawing().place_of_arrow("app/qt", "data"), (719 + 753) / 2)
        # A wider gap behind clock, which then ends at 904; at the ends of a box 14 are kept.
        self.assertAlmostEqual(self.drawing(clock=(75, 90)).place_of_arrow("app/qt", "data"), (911 + 986) / 2)

    def test_an_arrow_without_a_gap_slants(self):
        drawing = self.drawing(batch=(55, 74))  # ends 9.6 before clock
        self.assertIsNone(drawing.place_of_arrow("app/qt", "data"))
        # From the middle of app/qt to the middle of data, which clock hides.
        self.assertRegex(self.drawing(data=(80, 100)).arrow("app/qt", "data")[0], r"M520\.0 \d+L904\.0 ")

    def test_the_small_print_stays_in_its_box(self):
        for folder, lines in picture.Drawing(self.src, TABLE, PLACES).lines.items():
            left, right = PLACES[folder]
            for _, line in lines:
                self.assertLess(6.5 * len(line), 9.6 * (right - left) - 28, line)

    def test_a_folder_without_a_place(self):
        with self.assertRaisesRegex(ValueError, "differ in: edit"):
            picture.draw(self.src, TABLE, {folder: place for folder, place in PLACES.items() if folder != "edit"})


class Table(unittest.TestCase):
    def test_each_floor_stands_above_all_it_may_include(self):
        self.assertEqual(floors.rows(TABLE), [["data"], ["clock", "edit", "view", "batch"], ["app"], ["app/qt"]])

    def test_floors_that_stand_on_each_other(self):
        with self.assertRaisesRegex(ValueError, "stand on each other: a, b"):
            floors.rows((Floor("a", "", ("b",)), Floor("b", "", ("a",))))


if __name__ == "__main__":
    unittest.main()
