#!/usr/bin/env bash
# Holds a built program against what an optimised build is hardened with: hardening-test.sh PROGRAM
set -euo pipefail

program="$1"
status=0
# has WHAT PATTERN COMMAND …: the command's output has a line like the pattern.
has() {
    local what="$1" pattern="$2" output
    shift 2
    output=$("$@")
    grep -Eq "$pattern" <<<"$output" || {
        echo "FAILED: $what"
        status=1
    }
}

has "placed anywhere in memory" 'Type: +DYN \(Position-Independent' readelf -hW "$program"
has "relocations read only" '^ +GNU_RELRO ' readelf -lW "$program"
has "symbols bound at start" 'FLAGS.*(BIND_)?NOW' readelf -dW "$program"
has "no code on the stack" '^ +GNU_STACK .* RW +0x' readelf -lW "$program"
has "the stack guarded" '__stack_chk_fail' readelf -sW --dyn-syms "$program"
has "calls of the C library checked" '__[a-z]+_chk@' readelf -sW --dyn-syms "$program"
# The processor's control-flow checks begin with this instruction where a jump may land.
has "jumps land where meant" 'endbr' objdump -d --no-show-raw-insn --disassemble=main "$program"
exit "$status"
