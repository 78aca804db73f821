# SPDX-License-Identifier: MIT
"""The claims: functions of a subject, which print their measure or raise a Failure."""
