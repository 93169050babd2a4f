# Completion of nestrix-batch for bash. Options are those that the program's help tells.

_nestrix_batch() {
    local cur prev words cword split
    _init_completion -s -n : || return

    local command=pack i
    case ${words[1]} in
        pack | check | certify | best | draw | convert) command=${words[1]} ;;
    esac

    case $command$prev in
        *--method) COMPREPLY=($(compgen -W 'free drop' -- "$cur")) ;;
        *--unit) COMPREPLY=($(compgen -W 'mm cm m in ft pt px' -- "$cur")) ;;
        *--turns) COMPREPLY=($(compgen -W 'any 0,180 0,90,180,270' -- "$cur")) ;;
        draw--format) COMPREPLY=($(compgen -W 'svg png' -- "$cur")) ;;
        convert--format) COMPREPLY=($(compgen -W 'pol svg dxf json' -- "$cur")) ;;
        *--job | *--from | *--json) _filedir json ;;
        *--svg | *--watch) _filedir svg ;;
        *--dxf) _filedir dxf ;;
        *--csv) _filedir csv ;;
        draw--to) _filedir '@(svg|png)' ;;
        convert--to) _filedir '@(pol|svg|dxf|json)' ;;
        # Numbers are the user's.
        *--@(seed|scale|tolerance|join|width|margin|spacing|threads|pixels)) ;;
        *--@(time|steps|target-height|target-density|patience|population|generations|mutation)) ;;
        *)
            $split && return
            if [[ $cur == -* ]]; then
                COMPREPLY=($(compgen -W '$(_parse_help "$1" "$command --help")' -- "$cur"))
                ((cword > 1)) || COMPREPLY+=($(compgen -W '--version' -- "$cur"))
                return
            fi
            if [[ $command == certify || $command == best ]]; then
                _filedir json
            else
                _filedir '@(pol|svg|dxf|json)'
            fi
            ((cword > 1)) || COMPREPLY+=($(compgen -W 'pack check certify best draw convert' -- "$cur"))
            ;;
    esac
} && complete -F _nestrix_batch nestrix-batch
