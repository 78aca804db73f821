# SPDX-License-Identifier: MIT
# The header as the documentation site reads it: what is said once of a group of functions is said of
# each of them, without the arguments that it lacks.

function shared_with(prototype, lines, n, i, word, text, isLeftOut) {
  n = split(shared, lines, "\n")
  for (i = 1; i < n; i++) {
    if (lines[i] ~ /@|^ \*$/) isLeftOut = 0
    if (lines[i] ~ /@param /) {
      word = lines[i]
      sub(/.*@param +/, "", word)
      sub(/ .*/, "", word)
      isLeftOut = prototype !~ "[ *]" word "[],;)[]"
    }
    if (!isLeftOut) text = text lines[i] "\n"
  }
  return text
}

/^\/\*\*$/ { block = $0 "\n"; inComment = 1; isGroup = 0; next }
inComment {
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
/^(pxmStatus|const pxmVersionRecord\*) legacy90/ { prototype = "" ; inPrototype = 1 }
inPrototype {
  prototype = prototype $0 "\n"
  if (!/;$/) next
  if (!hasOwn) printf "/**\n * @brief %s.\n%s */\n", title, shared_with(prototype)
  printf "%s", prototype
  inPrototype = hasOwn = 0
  next
}
{ print }
