# Reads the log that CTest leaves and prints what the tests that failed printed, the
# last hundred lines of each, without GoogleTest's lines on what went well.

/^[0-9]+\/[0-9]+ Test: / { name = $3; lines = 0; output = 0; next }
/^Output:$/ { output = 1; next }
/^<end of output>$/ { output = 0; next }
output && !/^\[( RUN      |       OK |----------|==========)\] / && !/^-+$/ { line[lines++] = $0 }
/^Command: ""$/ { print preset ": " name " is not there" }  # CTest goes on to say "Passed"
/^Test Failed\.$/ { tell() }

function tell(   first) {
    print preset ": " name
    for (first = lines > 100 ? lines - 100 : 0; first < lines; first++) print "    " line[first]
}
