# To be sourced: what a program needs to run under Wine in the tests' own prefix.
# Usage: source wine_env.sh BUILD
export WINEPREFIX=$1/wine/prefix
export LOCPATH=$1/wine/locales
{ export LC_ALL=zh_CN.UTF-8; } 2>/dev/null  # which the shell itself needn't know
export WINEDEBUG=-all
# No debugger that waits for somebody, and nothing that asks to be downloaded.
export WINEDLLOVERRIDES='winedbg.exe=d;mscoree,mshtml='
