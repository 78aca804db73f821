# SPDX-License-Identifier: MIT
import sys

from mutation.command import main

sys.exit(main(sys.argv[1:]))
