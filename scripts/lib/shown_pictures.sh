# Sourced by scripts/pictures: shown_pictures prints the pictures that documents show and
# that are drawn from the score beside them, each once, by their paths from the top.

shown_pictures() {
    local page link path
    find README.md docs examples -name '*.md' | while read -r page; do
        { grep -oE '!\[[^]]*\]\([^)]+\.svg\)|<img [^>]*src="[^"]+\.svg"' "$page" || true; } |
            sed -E 's/.*\(([^)]+)\)$/\1/; s/.*src="([^"]+)"$/\1/' |
            while read -r link; do
                path=$(realpath -m --relative-to=. "$(dirname "$page")/$link")
                if [ -f "${path%.svg}.vorn" ]; then echo "$path"; fi
            done
    done | sort -u
}
