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


if __name__ == "__main__":
    unittest.main()
