"""What the checks share that have clang read the sources: its options, precompiled headers, and how files are told
from what they were."""
import hashlib
import re
import subprocess

TOPS = ("src", "host", "components", "commands")
PACKAGES = ("Qt6Widgets", "Qt6Svg", "Qt6PrintSupport", "Qt6Test", "sqlite3", "odbc", "libcurl", "libctemplate",
            "sane-backends", "libsodium", "yaml-cpp")
DEFINITIONS = ("-DQT_NO_CAST_TO_ASCII", "-DQT_NO_KEYWORDS", '-DFOLVANE_DATA_FOLDER="."')
LEFT_OUT = "src/base/Version.cpp"  # nothing but assertions on what CMake tells it


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def options(root):
    foreign = output_of("pkg-config", "--cflags", *PACKAGES).replace("-I/", "-isystem/").split()
    foreign.append("-isystem" + output_of("pkg-config", "--variable=includedir", "Qt6Core").strip() + "/QtPdf")
    return ["-std=c++20", "-fPIC", "-w", "-ferror-limit=0", *DEFINITIONS, f"-I{root}/include", f"-I{root}/src",
            f"-I{root}", *foreign]


def sources(root):
    return sorted(file for top in TOPS for file in (root / top).rglob("*.cpp") if file != root / LEFT_OUT)


def headers_named_in(file, within=""):
    """The foreign headers that a CMakeLists.txt names, all or those of one set(...)."""
    text = file.read_text(encoding="utf-8") if file.is_file() else ""
    if within:
        found = re.search(rf"set\({within} ([^)]*)\)", text)
        text = found[1] if found else ""
    return re.findall(r"<[\w/.]+>", text)


def precompile(made, headers, given):
    """Makes one header of many, with what their templates come to, and returns the options that take it in."""
    header = made.with_suffix(".h")
    header.write_text("".join(f"#include {name}\n" for name in headers), encoding="utf-8")
    given = [*given, "-fpch-instantiate-templates"]
    subprocess.run(["clang++-14", "-x", "c++-header", *given, header, "-o", made], check=True)
    return [*given, "-include-pch", str(made)]


def hash_of(files):
    sums = [f"{file} {hashlib.sha256(file.read_bytes()).hexdigest()}" for file in files if file.is_file()]
    return hashlib.sha256("\n".join(sums).encode()).hexdigest()
