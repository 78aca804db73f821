# SPDX-License-Identifier: MIT
# Reads the disassembly of the library, names demangled, and prints what its functions do to the
# upper halves of the vector registers, which a 256-bit instruction makes dirty and vzeroupper
# clears:
#   kernel LEVEL::NAME wide|narrow clears|keeps
#       A kernel is wide if it, or a function that it calls, uses 256-bit registers. It clears if
#       it returns with clean halves whatever they were when it was called.
#   elsewhere NAME      a function with 256-bit registers that no kernel calls
#   unclean NAME        a function with 256-bit registers that may return with dirty halves
# Every way through the code counts, with the calls and tail calls on it.

/^[0-9a-f]+ <.*>:$/ {
  f++
  name[f] = substr($0, index($0, "<") + 1)
  sub(/>:$/, "", name[f])
  first[f] = n + 1
  address = $1
  sub(/^0+/, "", address)
  starts[address] = f
  next
}
$1 ~ /^[0-9a-f]+:$/ && $2 != "" {
  n++
  of[n] = f
  prefixed = $2 ~ /^(notrack|bnd|repz?|data16|cs)$/
  op[n] = prefixed ? $3 : $2
  target[n] = prefixed ? $4 : $3
  address = $1
  sub(/:$/, "", address)
  place[address] = n
  if (/%ymm/) ymm[n] = isWide[f] = 1
}

# Whether function g may return with dirty halves when it is called with halves that are `dirty`.
function returnsDirty(g, dirty, state, ways, w, i, d, to, result) {
  if ((g, dirty) in known) return known[g, dirty]
  known[g, dirty] = 1  # what calls itself is not understood
  result = 0
  ways[w = 1] = first[g]
  state[first[g]] = dirty + 1  # 1 clean, 2 dirty; what is reached both ways is dirty
  while (w > 0) {
    i = ways[w--]
    d = state[i] - 1
    if (i in ymm) d = 1
    if (op[i] ~ /^vzero(upper|all)$/) d = 0
    to = target[i]
    if (op[i] == "call") d = to in starts ? returnsDirty(starts[to], d) : 1
    if (op[i] ~ /^(ret|ud2|hlt|int3)/) {
      if (op[i] ~ /^ret/ && d) result = 1
      continue
    }
    if (op[i] ~ /^j/) {
      if (to in place && of[place[to]] == g) w = reach(place[to], d, state, ways, w)
      else if (to in starts) result = result || returnsDirty(starts[to], d)
      else result = 1
      if (op[i] == "jmp") continue
    }
    if (of[i + 1] == g) w = reach(i + 1, d, state, ways, w)
    else result = 1
  }
  return known[g, dirty] = result
}
function reach(i, d, state, ways, w) {
  if (state[i] < d + 1) {
    state[i] = d + 1
    ways[++w] = i
  }
  return w
}

# Whether a function, or one that it calls, uses 256-bit registers.
function usesWide(g, i, result) {
  if (g in uses) return uses[g]
  uses[g] = g in isWide
  result = uses[g]
  for (i = first[g]; of[i] == g; i++)
    if (op[i] ~ /^(call|j)/ && target[i] in starts && starts[target[i]] != g)
      result = usesWide(starts[target[i]]) || result
  return uses[g] = result
}

END {
  for (g = 1; g <= f; g++)
    if (name[g] ~ /^pxm::[a-z0-9_]+::[A-Za-z0-9]+\(/) {
      kernel = name[g]
      sub(/^pxm::/, "", kernel)
      sub(/\(.*/, "", kernel)
      width = usesWide(g) ? "wide" : "narrow"
      print "kernel", kernel, width, returnsDirty(g, 1) ? "keeps" : "clears"
    }
  for (g in isWide) {
    if (!(g in uses)) print "elsewhere", name[g]
    if (returnsDirty(g + 0, 0)) print "unclean", name[g]
  }
}
