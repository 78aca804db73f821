# SPDX-License-Identifier: MIT
"""The fuzz targets: their sources, and the corpus that is committed."""

import hashlib
import re
import struct
import subprocess
import sys
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

SOURCE = Path(__file__).resolve().parent.parent.parent
CORPORA = SOURCE / "tests/fuzz/corpus"

LIBRARY = ["decode", "depth", "encode", "frame", "include", "twist", "vector", "catalogue",
           "tests/oracle", "tests/support/by_oracle.*", "tests/support/pages*"]
SUFFIXES = {".cpp", ".h", ".inl", ".def", ".S", ".inc"}


def pack(inputs: list[bytes]) -> bytes:
    """Each input after the number of its bytes."""
    return b"".join(struct.pack("<H", len(data)) + data for data in inputs)


def unpack(packed: bytes) -> list[bytes]:
    inputs = []
    while packed:
        size, = struct.unpack_from("<H", packed)
        inputs.append(packed[2:2 + size])
        packed = packed[2 + size:]
    return inputs


@dataclass(frozen=True)
class Target:
    name: str
    what: str  # what is counted
    most_bytes: int  # of an input
    sources: list[str]  # what the calls that are counted were made of
    environment: dict[str, str] = field(default_factory=dict)
    not_under: str = ""  # an engine that would have to have compiled a library that is used

    @staticmethod
    def of_faults(fault: str) -> "Target":
        conversions = TARGETS["conversions"]
        return Target("faults", conversions.what, conversions.most_bytes, conversions.sources,
                      {"PXM_FUZZ_FAULT": fault})

    def faults(self) -> list[str]:
        """The names in the table of deliberate faults."""
        text = (SOURCE / "tests/fuzz/faults.cpp").read_text(encoding="utf-8")
        return re.findall(r'^    {"([a-z-]+)", "', text, re.MULTILINE)

    def packed_corpus(self) -> Path:
        return CORPORA / f"{self.name}.inputs"

    def version(self) -> str:
        """Other for other sources."""
        files: set[Path] = set()
        for place in self.sources:
            for path in SOURCE.glob(place):
                files.update(path.rglob("*") if path.is_dir() else [path])
        digest = hashlib.sha256()
        for file in sorted(files):
            if file.suffix in SUFFIXES and not file.name.endswith("_test.cpp"):
                digest.update(f"{file.relative_to(SOURCE)}\n".encode())
                digest.update(hashlib.sha256(file.read_bytes()).digest())
        return digest.hexdigest()[:16]

    def seed_corpus(self, corpus: Path) -> None:
        """Puts the committed inputs into a working corpus."""
        corpus.mkdir(parents=True, exist_ok=True)
        if self.packed_corpus().is_file():
            for data in unpack(self.packed_corpus().read_bytes()):
                (corpus / hashlib.sha1(data).hexdigest()).write_bytes(data)
        if not any(corpus.iterdir()):
            (corpus / "empty").write_bytes(bytes(1))

    def keep(self, program: Path, working: list[Path]) -> None:
        """Adds to the committed corpus, from working ones, the fewest inputs that reach what it
        does not."""
        with tempfile.TemporaryDirectory() as place:
            kept = Path(place) / "kept"
            self.seed_corpus(kept)
            done = subprocess.run([program, "-merge=1", "-use_counters=0", "-use_cmp=0",
                                   f"-max_len={self.most_bytes}", kept, *working],
                                  check=False, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            if done.returncode != 0:
                sys.exit(f"{done.stdout.decode(errors='replace')[-3000:]}fuzz: no input is kept")
            inputs = sorted(file.read_bytes() for file in kept.iterdir())
        CORPORA.mkdir(exist_ok=True)
        self.packed_corpus().write_bytes(pack(inputs))
        print(f"fuzz: {len(inputs)} inputs, {self.packed_corpus().stat().st_size} bytes",
              file=sys.stderr)


TARGETS = {target.name: target for target in (
    Target("conversions", "calls", 72, LIBRARY + [
        f"tests/fuzz/{name}.*" for name in (
            "calls", "case", "classes", "conversions", "converted", "far", "guard", "input",
            "numbers", "placement", "rejected", "run")] + ["tests/fuzz/faults.h"]),
    Target("y4m", "inputs", 4096, ["examples", "tests/fuzz/y4m.cpp"], not_under="msan"),
    Target("png", "inputs", 4096, ["examples", "tests/fuzz/png.cpp"], not_under="msan"),
)}
