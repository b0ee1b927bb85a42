# Sourced by scripts/fuzz: some_files <folder> <most> prints the files of a folder, a line each;
# of more than the number <most> so many, evenly from the smallest to the largest.

some_files() {
    find "$1" -type f -printf '%s %f\n' | sort -k1,1n -k2 | cut -d ' ' -f 2- |
        awk -v folder="$1" -v most="$2" '
            { name[NR] = $0 }
            END {
                count = NR < most ? NR : most
                for (at = 0; at < count; ++at) print folder "/" name[1 + int(at * NR / count)]
            }'
}
