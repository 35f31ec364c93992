#!/bin/sh
# usage: make_locale.sh DIRECTORY LANGUAGE CHARSET: compiles a locale that LOCPATH=DIRECTORY finds.
set -eu
mkdir -p "$1"
localedef -i "$2" -f "$3" "$1/$2.$3"
