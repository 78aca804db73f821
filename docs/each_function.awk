# SPDX-License-Identifier: MIT
# The header as the documentation site reads it: what is said once of a group of functions is said of
# each of them, and formulas and layouts come without the stars of the comment.

/^\/\*\*$/ { block = $0 "\n"; inComment = 1; isGroup = 0; next }
inComment {
  if (verbatim) sub(/^ \*/, "")
  if (/@endverbatim/) verbatim = 0
  if (/@verbatim/) verbatim = 1
  block = block $0 "\n"
  if (/@name /) {
    isGroup = 1
    title = $0
    sub(/.*@name /, "", title)
    shared = ""
  } else if (isGroup && !/@\{/ && !/\*\/$/) shared = shared $0 "\n"
  if (/\*\/$/) {
    inComment = 0
    hasOwn = !isGroup
    if (isGroup) printf "/**\n * @name %s\n * @{\n */\n", title
    else printf "%s", block
  }
  next
}
/^(pxmStatus|const pxmVersionRecord\*) legacy90/ {
  if (!hasOwn) printf "/**\n * @brief %s.\n%s */\n", title, shared
  hasOwn = 0
}
{ print }
