#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests of what tools/mutate.py may change in a C++ text, of its drawing, and of what it makes of a test's output."""
import sys
import unittest
from pathlib import Path
from tempfile import TemporaryDirectory

sys.dont_write_bytecode = True

from mutation import changes, scratch, trial  # noqa: E402


def changed(text, kind=None):
    """Every text that one change makes of `text`, when `kind` is named only by changes of that kind."""
    return [
        text[: site.start] + replacement + text[site.end :]
        for site in changes.sites_of("a.cpp", text)
        if kind in (None, site.kind)
        for replacement in site.replacements
    ]


def in_function(statement):
    return f"void f()\n{{\n    {statement}\n}}\n"


def changed_in_function(statement, kind=None):
    """The same for a statement in a function's body, without what is around it."""
    return [text[len("void f()\n{\n    ") : -len("\n}\n")] for text in changed(in_function(statement), kind)]


class NothingIsDrawnFrom(unittest.TestCase):
    def check(self, text):
        self.assertEqual(changed(text), [])

    def test_comments(self):
        self.check('// x + 1; "text"\n/* if (a == 0) break; */\n')

    def test_a_comment_over_two_lines(self):
        self.check("// goes on \\\n x = 1 + 2;\n")

    def test_preprocessor_lines(self):
        self.check('#include <vector>\n#include "data/numbers.h"\n  #define LESS(a) \\\n      ((a) < 1)\n#if X > 2\n#endif\n')

    def test_a_preprocessor_line_behind_a_comment(self):
        self.check("// why\n#define LESS 1 + 2\n")

    def test_assertions(self):
        self.check("static_assert(sizeof(int) == 4 && true);\n" + in_function("assert(a < 1 && f(2, 3));"))

    def test_template_brackets_and_what_they_hold(self):
        self.check("template <class T, int N = 3>\nstd::array<std::vector<int, 2>, 20> table(const T&, std::span<T>);\n")

    def test_pointers_references_and_arrows(self):
        self.check("auto f(const char* const a, T&& b, Window& c) -> int*;\n")

    def test_declarations(self):
        self.check('class Window;\nusing Rows = int[3];\nvirtual void f() = 0;\nextern "C" void g();\nBig& operator+=(Big&);\n')

    def test_attributes(self):
        self.check('[[deprecated("for a reason")]] void f();\n')

    def test_null_pointers_and_a_declaration_in_a_function(self):
        self.check(in_function("const Record* record = nullptr;"))

    def test_a_return_with_a_value(self):
        self.check(in_function("return x;"))


class Operators(unittest.TestCase):
    def test_each_has_another(self):
        self.assertEqual(changed_in_function("return a + b;"), ["return a - b;"])
        self.assertEqual(changed_in_function("return a <= b;"), ["return a < b;", "return a > b;"])
        self.assertEqual(changed_in_function("return a &&\n           b;"), ["return a ||\n           b;"])
        self.assertEqual(changed_in_function("n += m;", "operator"), ["n -= m;"])
        self.assertEqual(changed_in_function("return a & b;"), ["return a | b;"])

    def test_counting_up_becomes_counting_down(self):
        self.assertEqual(changed_in_function("++n;", "operator"), ["--n;"])
        self.assertEqual(changed_in_function("*end++ = c;", "operator"), ["*end-- = c;"])

    def test_a_comparison_beside_template_brackets(self):
        self.assertEqual(changed_in_function("return static_cast<int>(a) > b;"),
                         ["return static_cast<int>(a) >= b;", "return static_cast<int>(a) <= b;"])  # fmt: skip


class Constants(unittest.TestCase):
    def test_whole_numbers(self):
        self.assertEqual(changes.changed_number("7"), ["8", "6", "0"])
        self.assertEqual(changes.changed_number("1"), ["2", "0"])
        self.assertEqual(changes.changed_number("0"), ["1", "-1"])
        self.assertEqual(changes.changed_number("0U"), ["1U"])
        self.assertEqual(changes.changed_number("0xFFu"), ["0x100u", "0xFEu", "0x00u"])
        self.assertEqual(changes.changed_number("0x00ab"), ["0x00ac", "0x00aa", "0x0000"])
        self.assertEqual(changes.changed_number("010"), ["011", "007", "000"])
        self.assertEqual(changes.changed_number("10'000"), ["10001", "9999", "0"])

    def test_floating_numbers(self):
        self.assertEqual(changes.changed_number("1.23"), ["1.24", "0.0"])
        self.assertEqual(changes.changed_number("0.05F"), ["0.06F", "0.0F"])
        self.assertEqual(changes.changed_number("0.0"), ["0.1"])
        self.assertEqual(changes.changed_number("9e-3"), ["8e-3", "0.0"])

    def test_truth(self):
        self.assertEqual(changed("bool m_shown = true;\n"), ["bool m_shown = false;\n"])

    def test_characters(self):
        self.assertEqual(changed("char c = ',';\n"), ["char c = '-';\n"])
        self.assertEqual(changed(r"char c = '\n';"), [r"char c = '\r';"])
        self.assertEqual(changed("char c = '&';\n"), ["char c = '%';\n"])


class Texts(unittest.TestCase):
    def test_lose_one_character(self):
        self.assertEqual(changed('auto a = "ab";\n'), ['auto a = "b";\n', 'auto a = "a";\n'])

    def test_an_escape_is_one_character(self):
        self.assertEqual(changes.changed_text(r'"\r\n"'), [r'"\n"', r'"\r"'])
        self.assertEqual(changes.changed_text(r'"\xEF\""'), [r'"\""', r'"\xEF"'])

    def test_a_raw_text(self):
        self.assertEqual(changes.changed_text('R"(a")"'), ['R"(")"', 'R"(a)"'])

    def test_of_an_operator_or_a_comment_in_it_nothing_else_changes(self):
        self.assertEqual(changed('auto a = "1 + 2 // 3";\n', "operator"), [])

    def test_an_empty_one_stays(self):
        self.assertEqual(changed('auto a = "";\n'), [])


class Conditions(unittest.TestCase):
    def test_are_negated(self):
        self.assertEqual(changed_in_function("if (ready) go();", "condition"), ["if (!(ready)) go();"])
        self.assertEqual(changed_in_function("while (a || (b)) go();", "condition"), ["while (!(a || (b))) go();"])

    def test_behind_an_initialiser(self):
        self.assertEqual(changed_in_function("if (auto a = f(); a) go();", "condition"), ["if (auto a = f(); !(a)) go();"])

    def test_a_declaration_is_no_condition(self):
        self.assertEqual(changed_in_function("if (auto a = f()) go();", "condition"), [])

    def test_those_of_the_compiler_stay(self):
        self.assertEqual(changed_in_function("if constexpr (ready) go();", "condition"), [])


class Statements(unittest.TestCase):
    def dropped(self, statement):
        return changed_in_function(statement, "statement")

    def test_calls_and_assignments_are_dropped(self):
        self.assertEqual(self.dropped("m_window.redraw();"), [";"])
        self.assertEqual(self.dropped("x = y;"), [";"])
        self.assertEqual(self.dropped("std::vector<int>::swap(a);"), [";"])

    def test_behind_if_else_for_and_case(self):
        self.assertEqual(self.dropped("if (a) go(); else stay();"), ["if (a) ; else stay();", "if (a) go(); else ;"])
        self.assertEqual(self.dropped("if constexpr (a) go();"), ["if constexpr (a) ;"])
        self.assertEqual(self.dropped("for (; a; b) go();"), ["for (; a; b) ;"])
        self.assertEqual(self.dropped("switch (a) { case A::b: go(); return 1; }"), ["switch (a) { case A::b: ; return 1; }"])

    def test_leaving_early_is_dropped(self):
        self.assertEqual(self.dropped("if (a) return;"), ["if (a) ;"])
        self.assertEqual(self.dropped("for (;;) { if (a) break; }"), ["for (;;) { if (a) ; }"])

    def test_a_break_that_ends_a_switch_and_a_continue_that_ends_a_loop_stay(self):
        self.assertEqual(self.dropped("switch (a) { default: break; }"), [])
        self.assertEqual(self.dropped("while (a) { continue; }"), [])

    def test_in_a_lambda_and_around_it(self):
        self.assertEqual(self.dropped("run([&](int n) { go(n); });"), [";", "run([&](int n) { ; });"])
        self.assertEqual(self.dropped("auto f = [&] { go(); };"), ["auto f = [&] { ; };"])
        self.assertEqual(self.dropped("f = [&] { go(); };"), [";", "f = [&] { ; };"])

    def test_declarations_stay(self):
        for declaration in ("Lock lock(mutex);", "std::pair<int, int> p{a, b};", "auto c = f();", "const T& t = f();",
                            "T* t = f();", "static_cast<void>(a);", "using std::swap;"):  # fmt: skip
            self.assertEqual(self.dropped(declaration), [], declaration)

    def test_outside_functions_nothing_is_dropped(self):
        self.assertEqual(changed("class A {\n    A();\n    void f(int a);\n    int m_a{b};\n};\nA g(B);\n", "statement"), [])

    def test_in_a_constructor_behind_its_initialisers(self):
        self.assertEqual(changed("A::A() : m_a{b}, m_c(d) { go(); }", "statement"), ["A::A() : m_a{b}, m_c(d) { ; }"])
        self.assertEqual(changed("A::A() : m_a(b), m_c{d} { go(); }", "statement"), ["A::A() : m_a(b), m_c{d} { ; }"])

    def test_in_a_function_that_names_its_type_last(self):
        self.assertEqual(changed("auto f() -> std::vector<int> { go(); }", "statement"),
                         ["auto f() -> std::vector<int> { ; }"])  # fmt: skip

    def test_in_a_function_inside_a_class(self):
        self.assertEqual(changed("class A final : B {\n    void f() const { go(); }\n};", "statement"),
                         ["class A final : B {\n    void f() const { ; }\n};"])  # fmt: skip


class Arguments(unittest.TestCase):
    def test_neighbours_are_swapped(self):
        self.assertEqual(changed_in_function("go(a, b(c), d);", "arguments"), ["go(b(c), a, d);", "go(a, d, b(c));"])

    def test_those_of_a_declaration_stay(self):
        self.assertEqual(changed("void go(A a, B b);\n", "arguments"), [])

    def test_a_text_and_something_else_stay_as_they_cannot_build(self):
        self.assertEqual(changed_in_function('go("a", b);', "arguments"), [])

    def test_like_ones_and_those_whose_order_is_nothing_stay(self):
        self.assertEqual(changed_in_function("go(a, a);", "arguments"), [])
        self.assertEqual(changed_in_function("c = std::max(a, b);", "arguments"), [])


class Drawing(unittest.TestCase):
    TEXTS = {"b.cpp": in_function("go(1, 2 + 3);"), "a.cpp": in_function('say("some text", x == 4);')}

    def test_the_same_seed_draws_the_same_whatever_the_order_of_the_files(self):
        again = dict(reversed(self.TEXTS.items()))
        self.assertEqual(changes.draw(self.TEXTS, 7), changes.draw(again, 7))

    def test_another_seed_draws_another_order(self):
        orders = [[(c.path, c.start, c.end) for c in changes.draw(self.TEXTS, seed)] for seed in (7, 8)]
        self.assertNotEqual(*orders)
        self.assertEqual(*map(sorted, orders))

    def test_every_place_is_drawn_once(self):
        drawn = changes.draw(self.TEXTS, 7)
        sites = [site for path, text in self.TEXTS.items() for site in changes.sites_of(path, text)]
        places = [(site.path, site.start, site.end, site.kind) for site in sites]
        self.assertEqual(sorted((c.path, c.start, c.end, c.kind) for c in drawn), sorted(places))
        self.assertEqual([c.number for c in drawn], list(range(1, len(places) + 1)))

    def test_a_change_knows_its_line_before_and_after(self):
        text = "one;\nx = 1;\nthree;\n"
        change = changes.Change(1, "a.cpp", 9, 10, "constant", "2")
        self.assertEqual((change.line_in(text), change.lines_in(text)), (2, ("x = 1;", "x = 2;")))
        self.assertEqual(change.applied_to(text), "one;\nx = 2;\nthree;\n")


class Outputs(unittest.TestCase):
    FAILED = (
        "[ RUN      ] A.passes\n[       OK ] A.passes (0 ms)\n[ RUN      ] A.fails/1\na.cpp:3: Failure\n"
        "[  FAILED  ] A.fails/1, where GetParam() = 3 (0 ms)\n[  FAILED  ] 1 test, listed below:\n[  FAILED  ] A.fails/1\n"
    )

    def test_the_failed_test_is_named(self):
        self.assertEqual(trial.failed_tests(self.FAILED), ["A.fails/1"])

    def test_a_failed_window_test_is_named_once(self):
        output = "PASS   : DialogsTest::opens()\nFAIL!  : DialogsTest::closes(by key) 'closed' returned FALSE. ()\n"
        self.assertEqual(trial.failed_tests(output * 2), ["DialogsTest::closes"])

    def test_the_test_in_which_a_program_crashed_or_hung_is_named(self):
        self.assertEqual(trial.unfinished_test("[ RUN      ] A.a\n[       OK ] A.a (0 ms)\n[ RUN      ] A.b\n"), "A.b")
        self.assertEqual(trial.unfinished_test("[ RUN      ] A.a\n[       OK ] A.a (0 ms)\n"), "")

    def test_the_floor_of_a_file(self):
        paths = ("src/edit/undo.cpp", "src/main.cpp", "bench/a/b.cpp")
        self.assertEqual([trial.floor_of(path) for path in paths], ["edit", "", ""])


class Copies(unittest.TestCase):
    def test_a_mirror_takes_back_what_was_changed_added_and_removed(self):
        with TemporaryDirectory() as name:
            kept, worked = Path(name, "kept"), Path(name, "worked")
            (kept / "sub").mkdir(parents=True)
            (kept / "sub" / "a").write_text("good")
            (kept / "b").write_text("good")
            scratch.mirror(kept, worked)
            (worked / "sub" / "a").write_text("changed")
            (worked / "b").unlink()
            (worked / "new").mkdir()
            (worked / "new" / "c").write_text("left behind")
            scratch.mirror(kept, worked)
            files = {str(p.relative_to(worked)): p.read_text() for p in worked.rglob("*") if p.is_file()}
            self.assertEqual(files, {"sub/a": "good", "b": "good"})
            self.assertEqual((worked / "b").stat().st_mtime_ns, (kept / "b").stat().st_mtime_ns)

    def test_a_folder_with_other_things_in_it_is_left_alone(self):
        with TemporaryDirectory() as name:
            Path(name, "thesis.txt").write_text("mine")
            with self.assertRaises(scratch.Refusal):
                scratch.claim(Path(name))


if __name__ == "__main__":
    unittest.main()
