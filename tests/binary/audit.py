#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Looks at the built library instead of its source: audit.py CLAIM LIBRARY SOURCE_DIR [WORD...]

Where a claim is about a variant, a level or object files, the words name them. A claim that holds
prints nothing but its measure; one that does not says what breaks it."""

import sys
from collections.abc import Callable

from checks import Failure
from claims import code, dispatch, exports, loading, objects
from claims.subject import Subject
from reading.library import Library
from reading.source_lists import SourceLists

CLAIMS: dict[str, Callable[[Subject], None]] = {
    "exports-are-exactly-the-list": exports.are_exactly_the_list,
    "exports-are-exactly-the-header": exports.are_exactly_the_header,
    "exports-have-the-version-of-the-interface": exports.have_the_version_of_the_interface,
    "exports-have-the-ordinals-of-the-list": exports.have_the_ordinals_of_the_list,

    "no-text-relocation": loading.no_text_relocation,
    "full-relro": loading.full_relro,
    "stack-is-not-executable": loading.stack_is_not_executable,
    "one-constructor": loading.one_constructor,
    "no-dependency": loading.no_dependency,
    "nothing-can-be-interposed": loading.nothing_can_be_interposed,
    "no-import": loading.no_import,
    "pages-may-lie-anywhere-and-none-is-written-and-executed":
        loading.pages_may_lie_anywhere_and_none_is_written_and_executed,

    "every-indirect-target-has-endbr64": dispatch.every_indirect_target_has_endbr64,
    "variant-index-is-hidden": dispatch.variant_index_is_hidden,
    "stubs-are-one-load-and-one-jump": dispatch.stubs_are_one_load_and_one_jump,
    "every-slot-leads-to-the-entry-of-its-variant":
        dispatch.every_slot_leads_to_the_entry_of_its_variant,
    "entry-minus-1-leads-to-the-trampoline-before-the-stub":
        dispatch.entry_minus_1_leads_to_the_trampoline_before_the_stub,
    "image-starts-unchosen": dispatch.image_starts_unchosen,
    "index-is-stored-before-the-enabled-mask": dispatch.index_is_stored_before_the_enabled_mask,
    "state-is-the-index-and-two-masks": dispatch.state_is_the_index_and_two_masks,

    "no-weak-symbol": objects.no_weak_symbol,
    "no-clone": objects.no_clone,
    "kernels-are-exactly-those-of-the-lists": objects.kernels_are_exactly_those_of_the_lists,
    "entries-are-exactly-those-of-the-list": objects.entries_are_exactly_those_of_the_list,
    "tables-are-constants": objects.tables_are_constants,
    "kernels-are-smaller": objects.kernels_are_smaller,
    "stripped-size": objects.stripped_size,

    "instructions-of-frame": code.instructions_of_frame,
    "instructions-of-entries": code.instructions_of_entries,
    "instructions-of-kernels": code.instructions_of_kernels,
    "wide-stack-moves-are-unaligned": code.wide_stack_moves_are_unaligned,
    "wide-registers-are-in-kernels-that-may-use-them":
        code.wide_registers_are_in_kernels_that_may_use_them,
    "upper-halves-are-cleared": code.upper_halves_are_cleared,
    "twist-kernels-clear-upper-halves": code.twist_kernels_clear_upper_halves,
}


def main(arguments: list[str]) -> int:
    if len(arguments) < 3:
        print("usage: audit.py CLAIM LIBRARY SOURCE_DIR [WORD...]", file=sys.stderr)
        return 2
    claim, library, source, *words = arguments
    try:
        if claim not in CLAIMS:
            raise Failure("unknown claim")
        CLAIMS[claim](Subject(Library(library), SourceLists(source), words))
    except (Failure, OSError) as failure:
        print(f"audit {claim}: {failure}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
