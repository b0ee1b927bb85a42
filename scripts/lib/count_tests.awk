# Reads the log that CTest leaves and prints "<passed> <failed>".
# A GoogleTest program counts with each of its tests, any other with one. A test
# begun and not ended (a crash, a time-out) has failed; a program that fails
# behind its last test (a leak) adds one failure.

/^\[ RUN      \] / { begun++ }
/\[       OK \] .* \([0-9]+ ms\)$/ { ok++ }
/\[  SKIPPED \] .* \([0-9]+ ms\)$/ { skipped++ }
/^\[==========\] Running [0-9]+ tests? / { googletest = 1 }
/^Command: ""$/ { absent = 1 }  # CTest found no such program and yet says "Passed"
/^Test Passed\.$/ && !absent { passed += googletest ? ok : 1; reset() }
/^Test Failed\.$/ || /^Test Passed\.$/ && absent {
    passed += ok
    failed += begun > ok + skipped ? begun - ok - skipped : 1
    reset()
}
END { print passed + 0, failed + 0 }

function reset() { begun = ok = skipped = googletest = absent = 0 }
