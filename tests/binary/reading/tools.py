# SPDX-License-Identifier: MIT
"""The programs whose output is read."""

import os
import subprocess

from checks import Failure


def output(*command: str, given: str = "") -> str:
    """What a command prints, in the C locale."""
    try:
        result = subprocess.run(command, input=given, text=True, capture_output=True, check=True,
                                env={**os.environ, "LC_ALL": "C"})
    except OSError as error:
        raise Failure(f"{command[0]}: {error.strerror}") from error
    except subprocess.CalledProcessError as error:
        raise Failure(f"{command[0]} fails: {error.stderr.strip()}") from error
    return result.stdout


def lines(*command: str) -> list[str]:
    return output(*command).splitlines()
