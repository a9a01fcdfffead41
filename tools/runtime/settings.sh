# Where the test runtime and fetched sources live. Sourced by other scripts.
cache=${TESSARINE_CACHE:-$HOME/.cache/tessarine}
tree_version=1
tree=$cache/wine-tree-$tree_version
instances=$cache/instances
csv_source=$cache/libcsv-3
