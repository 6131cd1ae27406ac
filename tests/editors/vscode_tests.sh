#!/usr/bin/env bash
# The VS Code extension's tests under node: its grammar with vscode-textmate
# and vscode-oniguruma (installed with npm ci from the extension's
# package-lock.json into WORK_DIR, never into the sources), and its client
# against terrix lsp. Exit 77 (skipped) when node or npm is missing or npm
# cannot fetch the packages.
# Usage: vscode_tests.sh TERRIX SOURCE_DIR WORK_DIR
set -euo pipefail
terrix="$1" source_dir="$2" work_dir="$3"
extension="$source_dir/editors/vscode"

if ! command -v node >/dev/null || ! command -v npm >/dev/null; then
  echo "vscode_tests: skipped: node and npm are not installed (scripts/install-dependencies installs them)"
  exit 77
fi
mkdir -p "$work_dir"
cp "$extension/package.json" "$extension/package-lock.json" "$work_dir/"
if ! (cd "$work_dir" && npm ci --no-audit --no-fund --ignore-scripts --loglevel=error); then
  echo "vscode_tests: skipped: npm cannot fetch vscode-textmate and vscode-oniguruma"
  exit 77
fi
TERRIX_TOOL="$terrix" TERRIX_SOURCE_DIR="$source_dir" NODE_PATH="$work_dir/node_modules" \
  node --test "$extension/test/"
