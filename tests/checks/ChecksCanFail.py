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

    def test_a_folder_without_a_place_fails(self):
        self.assertIn("has no place in the order", Tree({"src/attic/A.h": ""}).run("includes")[1])


class Traces(unittest.TestCase):
    def test_a_path_of_a_machine_fails(self):
        status, text = Tree({"a.txt": "see /" + "home/someone/notes\n"}).track().run("traces")
        self.assertEqual(status, 1)
        self.assertIn("a.txt:1", text)

    def test_other_paths_are_fine(self):
        self.assertEqual(Tree({"a.txt": "see /usr/share and docs/work/x\n"}).track().run("traces")[0], 0)


if __name__ == "__main__":
    unittest.main()
