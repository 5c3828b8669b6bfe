#!/bin/sh
# SPDX-License-Identifier: MIT
# Starts the show with the libraries beside it. lib/spare holds those that belong to the system's X and GL, a folder
# each: they are taken only where the system has none, since its drivers want its own.
here=$(CDPATH= cd -- "$(dirname -- "$(readlink -f -- "$0")")" && pwd)
spare=
for folder in "$here"/lib/spare/*; do
    [ -d "$folder" ] || continue
    name=${folder##*/}
    for place in /usr/lib/x86_64-linux-gnu /lib/x86_64-linux-gnu /usr/lib64 /lib64 /usr/lib /lib; do
        [ -e "$place/$name" ] && continue 2
    done
    spare=$spare${spare:+:}$folder
done
[ -z "$spare" ] || export LD_LIBRARY_PATH="$spare${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}"
export FONTCONFIG_FILE="$here/lib/fonts.conf"
exec "$here/lib/moonwaltz"
