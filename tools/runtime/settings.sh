# Where the test runtime lives. Sourced by the scripts beside it.
cache=${TESSARINE_CACHE:-$HOME/.cache/tessarine}
tree_version=1
tree=$cache/wine-tree-$tree_version
instances=$cache/instances
