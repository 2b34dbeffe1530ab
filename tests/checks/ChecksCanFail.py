"""Each check of the sources finds what it is there to find."""
import pathlib
import subprocess
import tempfile
import unittest

CHECKS = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "checks"


class Tree:
    """A small repository of its own."""

    def __init__(self, files):
        self.directory = tempfile.TemporaryDirectory()
        for name, text in files.items():
            path = pathlib.Path(self.directory.name, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")

    def run(self, check):
        answer = subprocess.run([CHECKS / check, self.directory.name], capture_output=True, text=True, check=False)
        self.directory.cleanup()
        return answer.returncode, answer.stdout + answer.stderr

    def track(self):
        for command in (["init", "-q"], ["add", "."]):
            subprocess.run(["git", *command], cwd=self.directory.name, check=True, capture_output=True)
        return self


class Includes(unittest.TestCase):
    def test_including_a_folder_below_is_fine(self):
        tree = Tree({"src/base/A.h": "", "src/shell/B.h": '#include "base/A.h"\n'})
        self.assertEqual(tree.run("includes"), (0, ""))

    def test_an_upward_edge_fails(self):
        tree = Tree({"src/base/A.h": '#include "shell/B.h"\n', "src/shell/B.h": ""})
        status, text = tree.run("includes")
        self.assertEqual(status, 1)
        self.assertIn("src/base/A.h includes src/shell/B.h: shell is not below base", text)

    def test_neighbours_do_not_know_each_other(self):
        tree = Tree({"src/query/A.cpp": '#include "originals/B.h"\n', "src/originals/B.h": ""})
        self.assertIn("originals is not below query", tree.run("includes")[1])

    def test_a_circle_inside_a_folder_fails(self):
        tree = Tree({"src/base/A.h": '#include "base/B.h"\n', "src/base/B.h": '#include "base/A.h"\n'})
        status, text = tree.run("includes")
        self.assertEqual(status, 1)
        self.assertIn("circle: src/base/A.h -> src/base/B.h -> src/base/A.h", text)

    def test_a_public_header_must_not_show_the_inside(self):
        tree = Tree({"include/folvane/A.h": '#include "base/B.h"\n', "src/base/B.h": ""})
        self.assertIn("a public header includes only public headers", tree.run("includes")[1])

    def test_the_host_must_not_reach_into_the_house(self):
        tree = Tree({"host/A.cpp": '#include "shell/B.h"\n', "src/shell/B.h": ""})
        self.assertIn("host may not know shell", tree.run("includes")[1])

    def test_commands_know_the_data_layer_and_nothing_above(self):
        tree = Tree({"commands/A.cpp": '#include "shell/B.h"\n#include "data/C.h"\n', "src/shell/B.h": "",
                     "src/data/C.h": ""})
        told = tree.run("includes")[1]
        self.assertIn("commands may not know shell", told)
        self.assertNotIn("data", told)

    def test_a_folder_without_a_place_fails(self):
        self.assertIn("has no place in the order", Tree({"src/attic/A.h": ""}).run("includes")[1])


class Sizes(unittest.TestCase):
    @staticmethod
    def lines(count):
        return "  Work();\n" * count

    def refused(self, text):
        """What is said against a source of that text."""
        return Tree({"src/base/A.cpp": text}).run("sizes")[1]

    def test_what_is_just_small_enough_is_fine(self):
        function = "void F() {\n" + self.lines(58) + "}\n"
        text = "namespace folvane {\n" + function * 4 + "\n" * 58 + "}\n"
        self.assertEqual(Tree({"host/A.cpp": text}).run("sizes"), (0, ""))

    def test_a_file_of_a_line_too_many_fails(self):
        self.assertEqual(self.refused("\n" * 300), "")
        self.assertIn("src/base/A.cpp: 301 lines", self.refused("\n" * 301))

    def test_a_function_of_a_line_too_many_fails(self):
        text = "namespace folvane {\nnamespace {\n\nvoid F(int a,\n       int b) {\n" + self.lines(58) + "}\n}\n}\n"
        self.assertIn("src/base/A.cpp:4: a function of 61 lines", self.refused(text))

    def test_a_member_function_inside_its_class_counts(self):
        text = "class A : public B {\n public:\n  int F() const override {\n" + self.lines(59) + "  }\n};\n"
        self.assertIn("src/base/A.cpp:3: a function of 61 lines", self.refused(text))

    def test_a_lambda_counts_with_the_function_around_it(self):
        text = "void F() {\n  Do([] {\n" + self.lines(57) + "  });\n}\n"
        self.assertIn("a function of 61 lines", self.refused(text))

    def test_a_constructor_goes_on_behind_the_values_of_its_members(self):
        text = "A::A() : a_{1}, b_(2, {3}), c_([] { Work(); }) {\n" + self.lines(59) + "}\n"
        self.assertIn("src/base/A.cpp:1: a function of 61 lines", self.refused(text))

    def test_braces_in_texts_and_remarks_do_not_count(self):
        text = "void F() {  // {\n  Say(u\"{\", u'{', R\"({)\", 1'000);  /* { */\n" + self.lines(58) + "}\nvoid G() {}\n"
        self.assertIn("src/base/A.cpp:1: a function of 61 lines", self.refused(text))

    def test_tables_and_classes_may_be_longer(self):
        table = "const Row kRows[] = {\n" + "  {1, 2},\n" * 100 + "};\n"
        self.assertEqual(self.refused(table + "struct A {\n" + "  int F() { return 1; }\n" * 100 + "};\n"), "")


class Traces(unittest.TestCase):
    def test_a_path_of_a_machine_fails(self):
        status, text = Tree({"a.txt": "see /" + "home/someone/notes\n"}).track().run("traces")
        self.assertEqual(status, 1)
        self.assertIn("a.txt:1", text)

    def test_other_paths_are_fine(self):
        self.assertEqual(Tree({"a.txt": "see /usr/share and docs/work/x\n"}).track().run("traces")[0], 0)


class Tidy(unittest.TestCase):
    CHOSEN = {".clang-tidy": (CHECKS.parents[1] / ".clang-tidy").read_text(encoding="utf-8")}
    MOVED_TWICE = ("#include <string>\nvoid Take(std::string text);\n"
                   "void F(std::string text) {\n  Take(std::move(text));\n  Take(std::move(text));\n}\n")

    def run_on(self, files):
        return Tree({**self.CHOSEN, **files}).run("tidy")

    def test_what_is_written_well_is_fine(self):
        self.assertEqual(self.run_on({"src/base/A.cpp": "int F() { return 1; }\n"}), (0, ""))

    def test_a_mistake_fails_in_a_source_and_in_a_header(self):
        for name in ("src/base/A.cpp", "components/c/A.cpp", "host/A.cpp", "commands/A.cpp"):
            status, text = self.run_on({name: self.MOVED_TWICE})
            self.assertEqual(status, 1)
            self.assertRegex(text, rf"{name}:5:.*used after it was moved")
        header = "inline int* Nothing() { return 0; }\n"
        text = self.run_on({"src/base/A.h": header, "src/base/A.cpp": '#include "base/A.h"\n'})[1]
        self.assertRegex(text, r"src/base/A.h:1:.*use nullptr")

    def test_a_path_that_leads_nowhere_good_fails(self):
        text = self.run_on({"src/base/A.cpp": "int F(int a) {\n  int b;\n  if (a > 1) b = 2;\n  return b;\n}\n"})[1]
        self.assertIn("clang-analyzer", text)

    def test_sources_that_use_a_name_for_different_things_are_both_looked_at(self):
        own = "namespace {\nint kOwn = 1;\n}\nint* %s() { return kOwn ? &kOwn : 0; }\n"
        text = self.run_on({"src/base/A.cpp": own % "F", "src/base/B.cpp": (own % "G").replace("int kOwn", "long kOwn")
                            .replace("int* G", "long* G")})[1]
        self.assertRegex(text, r"src/base/A.cpp:4:.*use nullptr")
        self.assertRegex(text, r"src/base/B.cpp:4:.*use nullptr")

    def test_what_does_not_compile_fails(self):
        self.assertEqual(self.run_on({"src/base/A.cpp": "int F() { return missing; }\n"})[0], 1)

    def test_what_was_found_once_is_found_again_and_a_clean_source_that_changes_is_looked_at_anew(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = pathlib.Path(folder)
            (tree / "src").mkdir()
            (tree / ".clang-tidy").write_text(self.CHOSEN[".clang-tidy"], encoding="utf-8")
            for text, status in ((self.MOVED_TWICE, 1), (self.MOVED_TWICE, 1), ("", 0), ("", 0), (self.MOVED_TWICE, 1)):
                (tree / "src" / "A.cpp").write_text(text, encoding="utf-8")
                answer = subprocess.run([CHECKS / "tidy", folder], capture_output=True, check=False)
                self.assertEqual(answer.returncode, status)


class Alone(unittest.TestCase):
    def told(self, files):
        return Tree(files).run("alone")

    def test_what_includes_what_it_uses_is_fine(self):
        files = {"src/base/A.h": "#pragma once\nstruct A {};\n", "src/base/B.h": '#pragma once\n#include "base/A.h"\nA F();\n',
                 "src/base/B.cpp": '#include "base/B.h"\nA F() { return {}; }\n'}
        self.assertEqual(self.told(files), (0, ""))

    def test_what_lives_on_the_includes_of_another_fails(self):
        files = {"src/base/A.h": "#pragma once\nstruct A {};\n"}
        for name in ("src/base/B.cpp", "src/base/B.h", "include/folvane/B.h", "tests/base/B.h", "commands/B.cpp"):
            status, text = self.told({**files, name: "inline A F() { return {}; }\n"})
            self.assertEqual(status, 1)
            self.assertIn(f"{name} cannot stand alone", text)

    def test_a_header_without_a_guard_fails(self):
        self.assertIn("redefinition", self.told({"src/base/A.h": "struct A {};\n"})[1])

    def test_a_folder_may_count_on_what_it_precompiles_and_a_host_on_nothing(self):
        named = {"src/CMakeLists.txt": "set(core_headers <vector>)\nset(widget_headers ${core_headers} <QLabel>)\n",
                 "src/base/CMakeLists.txt": "folvane_folder(base)\n", "src/shell/CMakeLists.txt": "folvane_folder(shell WIDGETS)\n"}
        label, list_ = "#pragma once\ninline QLabel* F();\n", "#pragma once\ninline std::vector<int> F();\n"
        self.assertEqual(self.told({**named, "src/base/A.h": list_, "src/shell/B.h": label, "src/shell/C.h": list_}), (0, ""))
        self.assertEqual(self.told({**named, "src/base/A.h": label})[0], 1)
        self.assertEqual(self.told({**named, "include/folvane/A.h": list_})[0], 1)

    def test_what_was_fine_is_read_again_when_something_changes_that_it_includes(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = pathlib.Path(folder, "src")
            tree.mkdir()
            (tree / "B.cpp").write_text('#include "A.h"\nint b = a;\n', encoding="utf-8")
            for text, status in (("extern int a;\n", 0), ("extern int c;\n", 1), ("extern int a;\n", 0)):
                (tree / "A.h").write_text("#pragma once\n" + text, encoding="utf-8")
                answer = subprocess.run([CHECKS / "alone", folder], capture_output=True, check=False)
                self.assertEqual(answer.returncode, status)


if __name__ == "__main__":
    unittest.main()
