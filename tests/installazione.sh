#!/usr/bin/env bash
# An installation in a directory of any name: what works without a tree of one's own, what asks for one,
# and that the first one made is found again.
#   installazione.sh CMAKE BUILD
set -uo pipefail
cmake=$1 build=$2
cartella=$(mktemp -d)
trap 'rm -rf "$cartella"' EXIT
guasto() { echo "installazione: $*" >&2; exit 1; }
"$cmake" --install "$build" --prefix "$cartella/un altro posto" > "$cartella/detto" 2>&1 ||
    { cat "$cartella/detto"; guasto "cmake --install"; }
mv "$cartella/un altro posto" "$cartella/spostato" # the installed tree holds no path
tk07=$cartella/spostato/bin/tk07
esempio=$cartella/spostato/lib/tk07/lavori/esempi/01_ipe160_su_ipe270.tk7
export HOME=$cartella/casa
unset XDG_CONFIG_HOME
mkdir "$HOME"
prima=$(find "$cartella/spostato" | sort | md5sum)

[[ $("$tk07" sezioni) == *IPE160* ]] || guasto "sezioni senza albero proprio"
"$tk07" proponi "$esempio" --piastre -o "$cartella/p.tk7" > /dev/null || guasto "proponi senza albero proprio"
"$tk07" disegna "$esempio" -o "$cartella/p.dxf" > /dev/null 2>&1 || guasto "disegna senza albero proprio"
for comando in "verifica $esempio" sessione; do
    # shellcheck disable=SC2086
    detto=$("$tk07" $comando 2>&1 < /dev/null)
    [[ $? -eq 2 && $detto == *"tk07 inizializza DIR"* ]] || guasto "$comando non chiede un albero: $detto"
done
[[ $prima == $(find "$cartella/spostato" | sort | md5sum) ]] || guasto "scritto nell'albero installato"

(cd "$cartella" && "$tk07" inizializza miei > /dev/null) || guasto inizializza
[[ $(< "$HOME/.config/tk07/albero") == "$cartella/miei" ]] || guasto "albero non ricordato"
"$tk07" verifica "$esempio" > /dev/null || guasto "verifica con l'albero ricordato"
[[ -f $cartella/miei/lavori/esempi/RelSLU_TK07_01_ipe160_su_ipe270.txt ]] || guasto "relazione altrove"
# A second tree does not take the first one's place, and is made from the installed one.
echo nodo > "$cartella/miei/lavori/esempi/mio.tk7"
"$tk07" inizializza "$cartella/altri" > /dev/null || guasto "secondo albero"
[[ $(< "$HOME/.config/tk07/albero") == "$cartella/miei" ]] || guasto "albero ricordato cambiato"
[[ ! -e $cartella/altri/lavori/esempi/mio.tk7 ]] || guasto "secondo albero fatto dal primo"
# One that is gone is not used.
rm -r "$cartella/miei"
"$tk07" verifica "$esempio" > /dev/null 2>&1
[[ $? -eq 2 ]] || guasto "albero sparito"
for f in share/mime/packages/tk07.xml share/bash-completion/completions/tk07; do
    [[ -f $cartella/spostato/$f ]] || guasto "manca $f"
done
[[ -n $(find "$cartella/spostato/share/man/man1" -name 'tk07.1*') ]] || guasto "manca la pagina man"
(
    source "$cartella/spostato/share/bash-completion/completions/tk07"
    COMP_WORDS=(tk07 ver) COMP_CWORD=1
    _tk07
    [[ ${COMPREPLY[*]} == verifica ]]
) || guasto "completamento"
[[ ! -e $cartella/spostato/lib/tk07/progra/tk07-gui || -f $cartella/spostato/share/applications/tk07.desktop ]] ||
    guasto "manca la voce di menu"
