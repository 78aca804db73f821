# SPDX-License-Identifier: MIT
"""Instructions as objdump prints them."""

import re
import subprocess

REGISTER = re.compile(r"%\w+")


class Instruction:
    def __init__(self, address: int, name: str, operands: str) -> None:
        self.address, self.name = address, name
        # Commas within parentheses separate the parts of an address.
        self.operands: list[str] = re.findall(r"(?:[^,(]|\([^)]*\))+", operands)

    @property
    def target(self) -> int | None:
        """Where a direct jump or call leads."""
        match = re.match(r"([0-9a-f]+) <", self.operands[0]) if self.operands else None
        return int(match[1], 16) if match else None

    @property
    def is_vector(self) -> bool:
        return any(re.search("%[xyz]mm", operand) for operand in self.operands)

    @property
    def memory(self) -> str | None:
        """The operand in memory."""
        return next((operand for operand in self.operands if "(" in operand), None)

    @property
    def is_to_memory(self) -> bool:
        return bool(self.operands) and "(" in self.operands[-1]

    @property
    def address_registers(self) -> list[str]:
        return [whole(register) for register in REGISTER.findall(self.memory or "")]

    def writes(self, register: str) -> bool:
        return (bool(self.operands) and not re.match("cmp|test|j|call", self.name)
                and whole(self.operands[-1]) == register)


def whole(register: str) -> str:
    """The 64-bit name of an integer register; other operands stay what they are."""
    name = register.lstrip("%")
    if match := re.fullmatch(r"(r\d+)[dwb]?", name):
        return match[1]
    match = re.fullmatch(r"[er]?([abcd])[xlh]|[er]?([sd]i|[sb]p)l?", name)
    return "r" + (match[1] + "x" if match[1] else match[2]) if match else register


class Disassembly:
    def __init__(self, text: str) -> None:
        self.functions: dict[int, list[Instruction]] = {}
        self.names: dict[str, int] = {}
        code: list[Instruction] = []
        for line in text.splitlines():
            if header := re.match(r"([0-9a-f]+) <(.*)>:$", line):
                self.names[header[2]] = int(header[1], 16)
                code = self.functions[int(header[1], 16)] = []
            elif match := re.match(r" +(\w+):\t(?:(?:notrack|repz?|bnd) )*(\S+) *([^#]*)", line):
                code.append(Instruction(int(match[1], 16), match[2], match[3].strip()))


def disassemble(library: str) -> Disassembly:
    return Disassembly(subprocess.run(["objdump", "-d", "--no-show-raw-insn", library], text=True,
                                      check=True, stdout=subprocess.PIPE).stdout)
