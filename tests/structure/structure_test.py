"""The measures of structure.py on made-up trees."""

import contextlib
import io
import os
import tempfile
import textwrap
import unittest

import structure


class StructureTest(unittest.TestCase):
    """Each test has an empty folder of its own."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name

    def write(self, path, *lines):
        file = os.path.join(self.root, path)
        os.makedirs(os.path.dirname(file), exist_ok=True)
        with open(file, "w", encoding="utf-8") as output:
            output.write("".join(line + "\n" for line in lines))

    def include(self, path, *included):
        self.write(path, *(f'#include "{name}"' for name in included))

    def sources(self):
        return structure.read_sources(self.root)

    def run_script(self, *arguments):
        """The exit status, standard output and standard error."""
        output, errors = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(output), contextlib.redirect_stderr(errors):
            try:
                status = structure.main(["--root", self.root, *arguments])
            except SystemExit as end:
                status = end.code
        return status, output.getvalue(), errors.getvalue()


class Files(StructureTest):
    def measure(self, name):
        return structure.measure_files(self.sources())[name]

    def test_a_file_is_short_below_30_lines(self):
        self.write("host/Short.cpp", *["int a;"] * 29)
        self.write("host/Long.cpp", *["int a;"] * 30)
        self.write("host/Rows.def", "ROW(1)")
        self.write("tests/Other.cpp", "int a;")
        self.assertEqual(self.measure("files under 30 lines"), (1, ["host/Short.cpp: 29"]))

    def test_the_depth_counts_the_files_of_the_longest_chain(self):
        self.include("platform/System/A.h", "string")
        self.include("interfaces/B.h", "System/A.h")
        self.include("host/C.cpp", "B.h", "System/A.h")
        self.assertEqual(self.measure("include depth of a source, median"), (3, []))

    def test_the_depth_is_the_median_of_the_sources(self):
        self.include("host/A.h")
        self.include("host/B.cpp", "host/A.h")
        self.include("host/C.cpp", "host/B.cpp")
        self.include("host/D.cpp")
        self.include("host/E.cpp")
        self.assertEqual(self.measure("include depth of a source, median")[0], 1.5)

    def test_a_circle_has_a_depth(self):
        self.include("host/A.h", "host/B.h")
        self.include("host/B.h", "host/A.h")
        self.include("host/C.cpp", "host/A.h")
        self.assertEqual(self.measure("include depth of a source, median")[0], 3)

    def test_a_header_that_is_seen_twice_counts_once(self):
        self.include("host/A.h")
        self.include("host/B.h", "host/A.h")
        self.include("host/C.h", "host/A.h")
        self.include("host/D.cpp", "host/B.h", "host/C.h", "vector")
        self.assertEqual(self.measure("project headers seen by a source, median")[0], 3)

    def test_sources_above_the_target_are_listed_from_the_highest(self):
        names = [f"host/H{number:02}.h" for number in range(12)]
        for name in names:
            self.write(name, "")
        self.include("host/Eleven.cpp", *names[:11])
        self.include("host/Ten.cpp", *names[:10])
        self.include("host/Twelve.cpp", *names)
        self.assertEqual(
            self.measure("project headers seen by a source, median"),
            (11, ["12: host/Twelve.cpp", "11: host/Eleven.cpp"]),
        )


class Includes(StructureTest):
    def measure(self, name):
        return structure.measure_includes(self.sources())[name]

    def test_files_in_a_circle(self):
        self.include("host/A.h", "host/B.h")
        self.include("host/B.h", "host/C.h")
        self.include("host/C.h", "host/A.h")
        self.include("host/D.h", "host/A.h")
        count, (circle,) = self.measure("circles of files")
        self.assertEqual(count, 1)
        self.assertEqual(circle.splitlines()[0], "host/A.h, host/B.h, host/C.h")

    def test_a_file_that_includes_itself(self):
        self.include("host/A.h", "host/A.h")
        self.assertEqual(self.measure("circles of files")[0], 1)

    def test_units_in_a_circle(self):
        self.include("host/A.h")
        self.include("host/A.cpp", "host/A.h", "host/B.h")
        self.include("host/B.h", "host/A.h")
        self.assertEqual(self.measure("circles of files"), (0, []))
        self.assertEqual(
            self.measure("circles of units"),
            (
                1,
                [
                    "host/A, host/B\n"
                    "      host/A -> host/B (1): host/A.cpp includes host/B.h\n"
                    "      host/B -> host/A (1): host/B.h includes host/A.h"
                ],
            ),
        )

    def test_folders_in_a_circle_over_different_files(self):
        self.include("host/a/A.h", "host/b/B.h")
        self.include("host/b/inner/C.h", "host/a/D.h")
        self.include("host/a/D.h")
        self.include("host/b/B.h")
        self.assertEqual(self.measure("circles of units"), (0, []))
        count, (circle,) = self.measure("circles of folders")
        self.assertEqual(count, 1)
        self.assertEqual(circle.splitlines()[0], "host/a, host/b")

    def test_a_folder_and_its_inner_folder_in_a_circle(self):
        self.include("host/a/A.h", "host/a/inner/B.h")
        self.include("host/a/inner/C.h", "host/a/D.h")
        self.include("host/a/D.h")
        self.include("host/a/inner/B.h")
        count, (circle,) = self.measure("circles of folders")
        self.assertEqual(count, 1)
        self.assertEqual(circle.splitlines()[0], "host/a/*, host/a/inner")

    def test_rows_of_a_table_make_no_circle_of_folders(self):
        self.include("host/a/A.cpp", "host/a/inner/B.h")
        self.include("host/a/inner/B.h", "host/a/Rows.def")
        self.write("host/a/Rows.def", "ROW(1)")
        self.assertEqual(self.measure("circles of folders"), (0, []))

    def test_an_inner_folder_may_be_included_by_its_folder_and_by_another(self):
        self.include("host/a/A.h", "host/a/inner/B.h")
        self.include("host/b/C.h", "host/a/inner/B.h")
        self.include("host/a/inner/B.h")
        self.assertEqual(self.measure("circles of folders"), (0, []))

    def test_layers_in_a_circle(self):
        self.include("host/A.h", "post/B.h")
        self.include("post/B.h", "host/C.h")
        self.include("host/C.h")
        count, (circle,) = self.measure("circles of folders")
        self.assertEqual(count, 1)
        self.assertEqual(circle.splitlines()[0], "host, post")

    def test_every_layer_includes_what_is_below_it_and_no_other(self):
        below = {
            "platform": [],
            "interfaces": ["platform"],
            "language": [],
            "MfgPPWord.m": ["language", "interfaces", "platform"],
            "host": ["interfaces", "platform"],
            "post": ["host", "language", "interfaces", "platform"],
            "inspect": ["post", "host", "language", "interfaces", "platform"],
            "verify": ["post", "host", "interfaces", "platform"],
            "tools": ["verify", "inspect", "post", "host", "language", "interfaces", "platform"],
        }
        for layer in below:
            self.include(f"{layer}/{layer}_.h")
            self.include(f"{layer}/A.cpp", *(f"{other}/{other}_.h" for other in below))
        expected = [
            f"{layer}/A.cpp includes {other}/{other}_.h: {layer} may not include {other}"
            for layer in sorted(below)
            for other in below
            if other != layer and other not in below[layer]
        ]
        self.assertEqual(self.measure("forbidden includes"), (len(expected), expected))

    def test_readers_do_not_include_the_writer(self):
        for name in ("generator", "output", "toolpath"):
            self.include(f"post/{name}/W.h")
        self.include("post/generator/G.cpp", "post/output/W.h", "post/toolpath/W.h")
        for reader in ("job", "listing"):
            self.include(
                f"post/{reader}/R.cpp", "post/generator/W.h", "post/output/W.h", "post/toolpath/W.h"
            )
        expected = [
            f"post/{reader}/R.cpp includes post/{writer}/W.h: "
            f"post/{reader} may not include post/{writer}"
            for reader in ("job", "listing")
            for writer in ("generator", "output")
        ]
        self.assertEqual(self.measure("forbidden includes"), (4, expected))

    def test_an_include_in_quotes_is_a_product_file(self):
        self.write("host/A.cpp", '#include "tests/B.h"', "#include <simdjson.h>")
        self.write("tests/B.h", "")
        self.assertEqual(
            self.measure("forbidden includes"),
            (1, ["host/A.cpp includes tests/B.h: not a file of the product"]),
        )

    def test_the_language_includes_headers_of_the_standard_library_only(self):
        self.write("language/A.h", "#include <string_view>", "#include <unistd.h>")
        self.assertEqual(
            self.measure("forbidden includes"),
            (1, ["language/A.h includes unistd.h: not of the standard library"]),
        )

    def test_the_direction_holds_for_angle_brackets_too(self):
        self.write("platform/System/A.h", "")
        self.write("language/B.h", "  #  include  <System/A.h>  // why")
        self.assertEqual(
            self.measure("forbidden includes"),
            (1, ["language/B.h includes System/A.h: language may not include platform"]),
        )

    def test_what_is_in_a_comment_or_a_quoted_text_is_not_included(self):
        self.write(
            "host/A.cpp",
            '// #include "post/B.h"',
            "/*",
            '#include "post/B.h"',
            "*/",
            'const char* const kText = R"x(',
            '#include "post/B.h"',
            ')x";',
        )
        self.assertEqual(self.measure("forbidden includes"), (0, []))


class Words(StructureTest):
    def quoted(self, allowed=()):
        return structure.measure_words(self.sources(), allowed)["banned words in quoted texts"]

    def commented(self):
        return structure.measure_words(self.sources(), {})["banned words in comments of headers"]

    def test_every_banned_word(self):
        words = (
            "behind tell tells telling told hear hears heard give gives gave stand stands stood"
            " nobody anew room rooms Behind"
        ).split() + ["as ever", "is no"]
        for word in words:
            self.write("host/A.cpp", f'const char* const kText = "a {word} b";')
            self.assertEqual(self.quoted()[0], 1, word)

    def test_words_that_are_not_banned(self):
        for words in (
            "given understand standard outstanding retell roommate whenever shear",
            "is not a file",
            "it is no longer there",
            "is no more than one",
            "there is no command",
            "MFG_ROOM_BEHIND",
        ):
            self.write("host/A.cpp", f'const char* const kText = "{words}";')
            self.assertEqual(self.quoted(), (0, []), words)

    def test_a_finding_has_its_place_and_its_words(self):
        self.write("host/A.cpp", "int a;", 'throw Error(name, "the text behind " + name, "x");')
        self.assertEqual(self.quoted(), (1, ["host/A.cpp:2: behind: the text behind"]))

    def test_texts_are_joined_as_the_compiler_joins_them(self):
        self.write("host/A.cpp", 'f("this is "  // a comment', '  "no file");', 'f("is", "no");')
        self.assertEqual(self.quoted(), (1, ["host/A.cpp:1: is no: this is no file"]))

    def test_an_escape_is_not_part_of_a_word(self):
        self.write("host/A.cpp", r'f("a\nbehind \"it\" b");', r"""g('"', "fine", '\'');""")
        self.assertEqual(self.quoted()[0], 1)

    def test_raw_texts_and_tables_of_rows(self):
        self.write("host/A.cpp", 'f(R"(one "word"', 'behind)");')
        self.write("host/B.def", 'ROW("stands")')
        self.assertEqual(
            self.quoted(),
            (2, ["host/A.cpp:2: behind: R (one word behind)", "host/B.def:1: stand: stands"]),
        )

    def test_code_and_includes_are_not_texts(self):
        self.write("host/behind.h", "")
        self.write("host/A.cpp", '#include "host/behind.h"', "int behind = 1'000; // behind")
        self.assertEqual(self.quoted(), (0, []))

    def test_allowed_texts_stay(self):
        self.write("host/A.cpp", 'f("one", "a key-behind "', '  "it, behind");')
        self.assertEqual(
            self.quoted({"a key-behind it": "a key"}),
            (1, ["host/A.cpp:2: behind: a key-behind it, behind"]),
        )

    def test_an_allowed_text_that_is_gone_is_reported(self):
        self.write("host/A.cpp", "int a;")
        self.assertEqual(
            self.quoted({"key-behind": "a key"}),
            (1, ["allowed, but in no quoted text: key-behind"]),
        )

    def test_comments_of_headers(self):
        self.write("host/A.h", "/// What this is", "/// no word of.", "int behind;  // told")
        self.write("host/B.def", "/* behind", " * it */")
        self.write("host/C.cpp", "// behind")
        self.assertEqual(
            self.commented(),
            (
                3,
                [
                    "host/A.h:1: is no: What this is no word of.",
                    "host/A.h:3: tell: told",
                    "host/B.def:1: behind: behind it",
                ],
            ),
        )


class Functions(StructureTest):
    def functions(self, code):
        source = structure.Source(textwrap.dedent(code))
        return [tuple(function) for function in structure.functions_of(source.code)]

    def test_a_function_is_measured_from_its_signature_to_its_brace(self):
        code = """\
            namespace a {
            int one() { return 1; }

            // A comment {
            bool several(int first,
                         int second) {
              if (first > second) {
                return true;
              }
              return false;
            }
            }  // namespace a
            """
        self.assertEqual(
            self.functions(code),
            [(2, 1, "int one()"), (5, 7, "bool several(int first, int second)")],
        )

    def test_members_and_constructors(self):
        code = """\
            template <class Value>
            class A final : public B {
             public:
              A() : a_{1}, b_(2) {}
              int get() const { return a_; }

             private:
              int a_ = 0;
              std::vector<int> list_ = {1, 2};
              enum class Kind { One, Two };
            };
            A::A(int a)
                : a_{a},
                  b_() {
              start();
            }
            """
        self.assertEqual(
            [(line, length) for line, length, _ in self.functions(code)], [(4, 1), (5, 1), (12, 5)]
        )

    def test_lambdas(self):
        code = """\
            constexpr Row kRows[] = {
                {"one", [](int a) { return a; }},
                {"two",
                 [](int a) {
                   return a;
                 }},
                {"three", 3},
            };
            void f() {
              g([](int a) {
                return a;
              });
            }
            """
        self.assertEqual(
            [(line, length) for line, length, _ in self.functions(code)], [(2, 1), (4, 3), (9, 5)]
        )

    def test_braces_in_texts_comments_and_macros_do_not_count(self):
        code = """\
            #define BODY(x) \\
              void x() {
            void f() {
              g("{", '{', R"({{)");  // {
            }
            """
        self.assertEqual(self.functions(code), [(3, 3, "void f()")])

    def test_the_measures_of_functions(self):
        lengths = [3] * 8 + [7, 12]
        bodies = [["void f() {", *["  g();"] * (length - 2), "}"] for length in lengths]
        self.write("host/A.cpp", *(line for body in bodies for line in body))
        self.assertEqual(
            structure.measure_functions(self.sources()),
            {
                "function length, median": (3, []),
                "function length, 90th percentile": (7, ["12: host/A.cpp:32: void f()"]),
                "function length, longest": (12, ["12: host/A.cpp:32: void f()"]),
            },
        )


class Script(StructureTest):
    def test_measures_within_their_limits(self):
        self.include("host/A.h")
        self.include("host/B.cpp", "host/A.h")
        status, output, errors = self.run_script("--includes")
        self.assertEqual((status, errors), (0, ""))
        self.assertEqual(
            [line.split()[:4] for line in output.splitlines()],
            [
                ["measure", "now", "limit", "target"],
                ["circles", "of", "files", "0"],
                ["circles", "of", "units", "0"],
                ["circles", "of", "folders", "0"],
                ["forbidden", "includes", "0", "0"],
            ],
        )

    def test_a_measure_above_its_limit(self):
        self.include("host/A.cpp", "post/B.h")
        self.include("post/B.h")
        status, output, _ = self.run_script("--includes", "--list")
        self.assertEqual(status, 1)
        self.assertEqual(
            output.splitlines()[-2:],
            [
                "forbidden includes                             1      0       0  above its limit",
                "    host/A.cpp includes post/B.h: host may not include post",
            ],
        )

    def test_all_measures(self):
        texts = (f'  print("{text}");' for text in structure.ALLOWED)
        self.write("host/A.cpp", "void f() {", *texts, "}")
        status, output, _ = self.run_script()
        self.assertEqual(status, 0)
        self.assertEqual(len(output.splitlines()), 1 + len(structure.LIMITS))

    def test_a_limit_that_can_be_lowered(self):
        limits = [structure.Limit(*row) for row in (("a", 3, 1), ("b", 1, 1), ("c", 2, 1))]
        measures = {"a": (2, ["one", "two"]), "b": (0.5, []), "c": (2, [])}
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            self.assertTrue(structure.report(limits, measures, False))
        self.assertEqual(
            [line.split() for line in output.getvalue().splitlines()[1:]],
            [
                ["a", "2", "3", "1", "lower", "its", "limit"],
                ["b", "0.5", "1", "1"],
                ["c", "2", "2", "1"],
            ],
        )

    def test_a_folder_without_sources(self):
        status, output, errors = self.run_script()
        self.assertEqual((status, output), (2, ""))
        self.assertIn(f"error: {self.root} has none of the folders platform, ", errors)


if __name__ == "__main__":
    unittest.main()
