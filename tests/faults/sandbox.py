"""A folder in which a scenario runs again and again from the same beginning."""

import collections
import dataclasses
import os
import pathlib
import shutil
import subprocess

PREPARATION_SECONDS = 60
FIRST_DAYS = ("20240102", "20240103", "20240104", "20240105", "20240108")


@dataclasses.dataclass(frozen=True)
class Tools:
    """Programs of one build, and the samples."""

    build: pathlib.Path
    samples: pathlib.Path

    @property
    def program(self):
        return str(self.build / "bin" / "tradebill")

    @property
    def injector(self):
        return str(self.build / "bin" / "fault_injector")

    def command(self, scenario, arguments=None):
        """What runs without the injector."""
        if arguments is None and scenario.of_library:
            host, module = self.build / "bin" / "library_host", self.build / "lib" / "libtradebill.so"
            return [str(host), str(module), *scenario.arguments]
        return [self.program, *(arguments or scenario.arguments)]


@dataclasses.dataclass(frozen=True)
class Call:
    """A system call as the injector names it."""

    name: str
    object: str
    second: str     # path of after; empty unless there are two
    changes: bool   # the disk
    number: int     # among the calls of this name on this object, from 1

    def options(self, way):
        """What has the injector meddle with this call."""
        return ["--at", self.name, self.object, str(self.number), way]


def read_calls(lines):
    """The calls of an injector's log, in their order. The last line may be cut: the injector is killed when a program hangs."""
    counts, calls = collections.Counter(), []
    for name, path, second, changes in (line.split("\t") for line in lines if line.count("\t") == 3):
        counts[name, path] += 1
        calls.append(Call(name, path, second, changes == "changes", counts[name, path]))
    return calls


@dataclasses.dataclass
class Ending:
    """How a run ended and what it left."""

    exit: int            # negative: the signal; None: it hung
    out: bytes
    err: str
    tree: dict
    calls: list          # of the injector's log

    def said(self, on_stdout):
        """What the program tells its user."""
        return self.err + (self.out.decode("utf-8", "replace") if on_stdout else "")


class Sandbox:
    """Holds `box`, the scenario's current folder, below `folder`; beside it what the run's surroundings need."""

    def __init__(self, folder, tools):
        self.folder = pathlib.Path(folder)
        self.tools = tools
        self.box = self.folder / "box"
        self.log = self.folder / "calls"
        self.cache = self.folder / "font_cache"
        self.kept_cache = self.folder / "kept_cache"
        self.folder.mkdir(parents=True, exist_ok=True)
        settings = self.folder / "fonts.conf"
        settings.write_text(f'<?xml version="1.0"?>\n<fontconfig><dir>/usr/share/fonts</dir>'
                            f"<cachedir>{self.cache}</cachedir></fontconfig>\n")
        self.surroundings = {**os.environ, "FONTCONFIG_FILE": str(settings), "HOME": str(self.folder), "TZ": "UTC0"}
        self.inputs, self.begin = {}, {}

    def set_up(self, scenario):
        """Makes the beginning of a scenario: a sample's first days, and what earlier runs leave."""
        self.copy_sample(scenario)
        if not self.cache.exists():
            self._run([self.tools.program, "gallery", str(self.folder / "first")], None)  # looks at all fonts
        for arguments in scenario.before:
            ending = self._run(self.tools.command(scenario, arguments), None)
            if ending[0] != 0:
                raise RuntimeError(f"{scenario.name}: {arguments} ends with {ending}")
        self.begin = self.tree()
        if not self.kept_cache.exists():
            shutil.copytree(self.cache, self.kept_cache)

    def copy_sample(self, scenario):
        """Makes a box of the sample's first days alone."""
        shutil.rmtree(self.box, ignore_errors=True)
        sample = self.tools.samples / scenario.sample
        shutil.copytree(sample, self.box, ignore=lambda folder, names: [n for n in names if self._is_later(folder, n)])
        shutil.rmtree(self.box / "root/Users/demo/Data/Bill/Image", ignore_errors=True)
        self.inputs = self.tree()

    @staticmethod
    def _is_later(folder, name):
        return folder.endswith("/Bill") and name.endswith("o.txt") and not any(f".{day}o" in name for day in FIRST_DAYS)

    def tree(self):
        """Bytes of all files below the box by their path, and None for each folder."""
        found = {}
        for folder, folders, files in os.walk(self.box):
            below = pathlib.Path(folder).relative_to(self.box)
            found.update({str(below / name): None for name in folders})
            for name in files:
                found[str(below / name)] = pathlib.Path(folder, name).read_bytes()
        return found

    def restore(self, beginning=None):
        """Puts the box back to its beginning."""
        wanted = self.begin if beginning is None else beginning
        now = self.tree()
        for path in sorted(now.keys() - wanted.keys(), reverse=True):
            (self.box / path).rmdir() if now[path] is None else (self.box / path).unlink()
        for path, content in sorted(wanted.items()):
            if path in now and now[path] == content:
                continue
            if path in now and (now[path] is None) != (content is None):
                (self.box / path).rmdir() if now[path] is None else (self.box / path).unlink()
            (self.box / path).mkdir() if content is None else (self.box / path).write_bytes(content)

    def restore_fonts(self):
        shutil.rmtree(self.cache, ignore_errors=True)
        shutil.copytree(self.kept_cache, self.cache)

    def run(self, scenario, injection=()):
        """The scenario from where the box stands, with the injector's options before it."""
        command = [self.tools.injector, str(self.log), *injection, "--", *self.tools.command(scenario)]
        exit_code, out, err = self._run(command, scenario.stdin, scenario.hang_seconds)
        lines = self.log.read_text(errors="replace").splitlines() if self.log.exists() else []
        if lines and lines[-1].startswith("signal "):
            exit_code = -int(lines[-1].split()[1])
        return Ending(exit_code, out, err.decode("utf-8", "replace"), self.tree(), read_calls(lines))

    def _run(self, command, stdin, seconds=PREPARATION_SECONDS):
        with open(self.box / stdin if stdin else os.devnull, "rb") as source:
            try:
                done = subprocess.run(command, cwd=self.box if self.box.exists() else self.folder, stdin=source,
                                      capture_output=True, timeout=seconds, env=self.surroundings, check=False)
            except subprocess.TimeoutExpired as late:
                return None, late.stdout or b"", late.stderr or b""
        return done.returncode, done.stdout, done.stderr
