#!/usr/bin/env bash
# Fails when a tracked file, a file name or a commit subject holds a word that has no place here:
# references to documents outside the project, paths of a machine, package hosts.
set -uo pipefail
cd "$(dirname "$(realpath "$0")")/.."
numbered='\bPart''s? [1-6]\.[1-8]\b'
document='\bthe sp''ec(ification)?\b|sp''ec\.md|\bacceptance criter''ia'
machine='/wo''rk/|\.\./sha''red|deb\.deb''ian\.org|registry\.npm''js\.org'
pattern="$numbered|$document|$machine"
found=0
if git grep -nIiE "$pattern" -- .; then found=1; fi
if git ls-files | grep -iE "$pattern"; then found=1; fi
if git log --format='%h %s%n%b' | grep -iE "$numbered|$document"; then found=1; fi
[ $found = 0 ] || echo "check_words: the lines above hold words that must not stand here" >&2
exit $found
