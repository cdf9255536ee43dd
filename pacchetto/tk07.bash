# Completion of tk07. The commands and options are those that `tk07 --help` tells.
_tk07() {
    local parola=${COMP_WORDS[COMP_CWORD]} prima=${COMP_WORDS[COMP_CWORD-1]} comando= i
    local comandi="inizializza verifica controlla mostra proponi carichi importa disegna scena
        relazione sezioni materiali sessione"
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
            --diroot | --lavoro) ((i++)) ;;
            -*) ;;
            *) comando=${COMP_WORDS[i]}; break ;;
        esac
    done
    case $prima in
        --diroot) mapfile -t COMPREPLY < <(compgen -d -- "$parola"); return ;;
        --metodo) mapfile -t COMPREPLY < <(compgen -W "slu ta" -- "$parola"); return ;;
        --lavoro | --fili | --aggiungi | --bulloni | --nodi | --aste | --casi | --condizioni | --sestetti) return ;;
        -o | --esporta) mapfile -t COMPREPLY < <(compgen -f -- "$parola"); compopt -o filenames; return ;;
    esac
    if [[ $parola == -* ]]; then
        local opzioni="--help"
        case $comando in
            "") opzioni+=" --version --diroot --lavoro" ;;
            verifica) opzioni+=" --metodo --json --csv --esiti --fili --fermati --apri --stampa" ;;
            mostra | sezioni | materiali) opzioni+=" --json" ;;
            proponi) opzioni+=" --piastre --nervature --bulloni -o" ;;
            carichi) opzioni+=" --aggiungi --senza-doppi --max-min --esporta -o" ;;
            importa) opzioni+=" --nodi --aste --casi --condizioni --sestetti --max-min --spiega -o" ;;
            disegna) opzioni+=" --tipi-linea -o" ;;
            scena) opzioni+=" --distinta --json -o" ;;
            relazione) opzioni+=" --breve --metodo -o" ;;
            sessione) opzioni+=" --avvia-programmi" ;;
        esac
        mapfile -t COMPREPLY < <(compgen -W "$opzioni" -- "$parola")
        return
    fi
    case $comando in
        "") mapfile -t COMPREPLY < <(compgen -W "$comandi" -- "$parola") ;;
        inizializza) mapfile -t COMPREPLY < <(compgen -d -- "$parola"); compopt -o filenames ;;
        sezioni | materiali | sessione) ;;
        *)
            mapfile -t COMPREPLY < <(compgen -f -X '!*.[tT][kK]7' -- "$parola"; compgen -d -- "$parola")
            compopt -o filenames
            ;;
    esac
}
complete -F _tk07 tk07
