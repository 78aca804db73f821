# SPDX-License-Identifier: MIT
# A page as the documentation site reads it: headings get the labels that web views of the repository
# give them, and links to a heading of another page go there. A label has its page's name before it,
# because the site has one space of labels.

function page_of(path) {
  sub(/.*\//, "", path)
  sub(/\.md$/, "", path)
  return tolower(path)
}

function label(heading) {
  heading = tolower(heading)
  gsub(/[^a-z0-9 _-]/, "", heading)
  gsub(/ /, "-", heading)
  return heading
}

/^```/ { in_code = !in_code }
in_code { print; next }
/^##+ / {
  heading = $0
  sub(/^#+ /, "", heading)
  print $0 " {#" page_of(FILENAME) "_" label(heading) "}"
  next
}
{
  while (match($0, /\]\([A-Za-z_\/.]+\.md#[a-z0-9_-]+\)/)) {
    target = substr($0, RSTART + 2, RLENGTH - 3)
    at = index(target, "#")
    target = page_of(substr(target, 1, at - 1)) "_" substr(target, at + 1)
    $0 = substr($0, 1, RSTART + 1) "#" target substr($0, RSTART + RLENGTH - 1)
  }
  print
}
