#!/usr/bin/env bash
# In the place of a command that signs: spoils the library, so that it cannot be registered.
[[ $1 != */Wendrill23.dll ]] || echo 'no library' >"$1"
