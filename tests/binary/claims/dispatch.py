# SPDX-License-Identifier: MIT
"""Claims about the way from an export to the entry of a variant, and about the state on it."""

import itertools
import re

from checks import measure, none, require, same
from claims.subject import Subject
from reading import tools
from reading.disassembly import Function, Instruction, disassemble, parse_instructions

TABLES = 99        # of the conversions, and of the one service that is dispatched
POINTER_BYTES = 8
TRAMPOLINE_BYTES = 9


def every_indirect_target_has_endbr64(subject: Subject) -> None:
    library = subject.library
    marks = [line for line in tools.lines("readelf", "-nW", library.path)
             if "x86 feature: IBT, SHSTK" in line]
    require(len(marks) == 1, "the object is not marked")
    text = library.section(".text")
    targets = {target for target in library.relocations.targets.values() if text.has(target)}
    targets |= {symbol.address for symbol in library.exports if symbol.address is not None}
    code = "\n".join(line for line in disassemble(library.path).splitlines() if "endbr64" in line)
    landings = {it.address for it in parse_instructions(code) if it.name == "endbr64"}
    none("indirect targets without endbr64",
         (f"{target:x}" for target in sorted(targets - landings)))
    measure("indirect targets", len(targets))


def variant_index_is_hidden(subject: Subject) -> None:
    indices = [symbol for symbol in subject.library.symbols if symbol.name == "VariantIndex"]
    require(len(indices) == 1, "VariantIndex is not in the symbol table")
    none("exported", (symbol.name for symbol in subject.library.exports
                      if "VariantIndex" in symbol.name))


def stubs_are_one_load_and_one_jump(subject: Subject) -> None:
    stubs = sorted(function.name for function in subject.library.functions()
                   if is_stub(function, subject.library.is_pe))
    same("stubs", stubs, sorted(subject.lists.dispatched().values()))


LANDING = ("endbr64", r"")
STUB = (("movslq", r".*\(%rip\),%rax .*<VariantIndex>"),
        ("lea", r".*\(%rip\),%r11 .*_table>"),
        ("jmp", r"\*\(%r11,%rax,8\)"))


def is_stub(function: Function, is_pe: bool) -> bool:
    """Whether a function's code, padding aside, is exactly a stub's."""
    if "<VariantIndex>" not in function.body:
        return False
    want = STUB if is_pe else (LANDING, *STUB)
    code = [it for it in function.instructions() if not it.name.startswith(("nop", "xchg"))]
    return len(code) == len(want) and all(
        it.name == name and re.fullmatch(text, it.text.rstrip())
        for it, (name, text) in zip(code, want))


def every_slot_leads_to_the_entry_of_its_variant(subject: Subject) -> None:
    library, tags = subject.library, subject.lists.variants
    count = 0
    for name in subject.lists.dispatched():
        table = library.address_of(f"{name}_table")
        entries = [library.addresses.get(f"{name}_{tag}") for tag in tags]
        for slot, (tag, entry) in enumerate(zip(tags, entries)):
            target = library.relocations.targets.get(table + POINTER_BYTES * slot)
            require(target is not None and target == entry,
                    f"{name}: slot {slot} does not lead to {name}_{tag}")
            require(entry not in entries[:slot],
                    f"{name}: slot {slot} leads to the entry of another variant")
            count += 1
    require(count == TABLES * len(tags), f"{count} slots, not {len(tags)} of {TABLES} tables")
    measure("slots", count)


def entry_minus_1_leads_to_the_trampoline_before_the_stub(subject: Subject) -> None:
    library = subject.library
    count = 0
    for name, export in subject.lists.dispatched().items():
        trampoline = library.address_of(f"{name}_trampoline")
        place = library.address_of(f"{name}_table") - POINTER_BYTES
        require(library.relocations.targets.get(place) == trampoline,
                f"{name}: entry -1 leads elsewhere")
        require(trampoline + TRAMPOLINE_BYTES == library.address_of(export),
                f"{name}: the trampoline does not fall through into the stub")
        count += 1
    require(count > 0, "no stub")
    measure("trampolines", count)


def image_starts_unchosen(subject: Subject) -> None:
    """The bytes of the image: index -1, enabled mask 7."""
    library = subject.library
    data = library.section(".data")
    masks = [name for name in library.addresses if name.endswith("15enabledFeaturesE")]
    require(len(masks) == 1, "not one enabled mask")
    index = library.initial_bytes(data, library.address_of("VariantIndex"), 4)
    mask = library.initial_bytes(data, library.address_of(masks[0]), 8)
    require(index == b"\xff" * 4, f"VariantIndex starts as {index.hex()}")
    require(mask == b"\7" + b"\0" * 7, f"the enabled mask starts as {mask.hex()}")


def index_is_stored_before_the_enabled_mask(subject: Subject) -> None:
    stores = [stored for function in subject.library.functions("-C")
              if function.name.startswith("pxm::startUp(")
              for stored in map(what_is_stored, function.instructions()) if stored]
    order = [stored for stored, _ in itertools.groupby(stores)]
    require(order == ["index", "mask"], f"stores in the order '{' '.join(order)}'")


def what_is_stored(it: Instruction) -> str | None:
    """Which part of the state an instruction of the start sets."""
    if it.name == "call" and "SetEnabledFeatures" in it.text:
        return "mask"
    store = re.search(r",0x[0-9a-f]+\(%rip\) .*(<VariantIndex>|enabledFeatures>)", it.text)
    if it.name.startswith("mov") and store:
        return "index" if store[1] == "<VariantIndex>" else "mask"
    return None


def state_is_the_index_and_two_masks(subject: Subject) -> None:
    table = tools.output("objdump", "-tC", subject.library.path)
    same("writable symbols", sorted(parse_writable(table)),
         ["VariantIndex", "pxm::(anonymous namespace)::enabledFeatures", "pxm::featureMaskCache"])


def parse_writable(table: str) -> list[str]:
    """The symbols in sections that stay writable, in the table of objdump. Before a name that is
    local, a library whose exports have a version has blanks in the place of one."""
    return re.findall(r" \.(?:data|bss)\t[0-9a-f]+ +(?:\.hidden )?(.*)$", table, re.MULTILINE)
