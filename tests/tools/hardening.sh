# To be sourced: reads a program as it is installed.

# hardening_missing <program>   a line for each guard that the program lacks; status 0 when it has them all
hardening_missing() {
    local told what wanted missing=0
    told=$(readelf --wide --file-header --program-headers --dynamic --dyn-syms "$1") || return 2
    while IFS='|' read -r what wanted; do
        grep -qE -- "$wanted" <<<"$told" && continue
        echo "$1 lacks $what ($wanted)"
        missing=1
    done <<'ROWS'
an address that is drawn at each start|\(FLAGS_1\) .*\bPIE\b
tables that the loader fills, then locks|GNU_RELRO
tables that are filled before main|\(FLAGS\) .*\bBIND_NOW\b
a stack that cannot be executed|GNU_STACK .* RW 
the guard of the stack| __stack_chk_fail@
calls that know the size of what they fill| __[a-z]+_chk@
ROWS
    return "$missing"
}
