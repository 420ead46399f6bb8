#!/usr/bin/env bash
# Installs what drives the browser, and the accessibility checker, where they are not there yet.
#
#   install.sh FOLDER

set -euo pipefail
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd -P)
folder=$1
if [[ $folder/node_modules/.package-lock.json -nt $here/package-lock.json ]]; then exit; fi
mkdir -p -- "$folder"
cp -- "$here"/{package.json,package-lock.json,.npmrc} "$folder"
cd -- "$folder"
npm ci --no-audit --no-fund
