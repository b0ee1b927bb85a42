#!/usr/bin/env bash
# A run whose allocations, system calls and devices fail ends in a stated way.
exec scripts/faults --quick "$VORN_PROGRAM"
