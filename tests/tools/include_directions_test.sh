#!/usr/bin/env bash
# Each folder of src/ includes only what its README allows, and no header reaches itself.
exec "$(dirname "$0")/../../scripts/lib/include_directions"
