# bash completion for zors: commands, the options that --help names, their choices, files.
_zors() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command= word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    [[ $word == -* ]] || { command=$word; break; }
  done
  if [[ -z $command ]]; then
    COMPREPLY=($(compgen -W "info filter resample convert spectrogram spectrum dtmf tone noise sweep design bench check --help --version" -- "$current"))
    return
  fi
  local choices=
  case $previous in
    --quality) choices="quick good high best" ;;
    --iir) choices="butter cheby" ;;
    --g711) choices="a mu" ;;
    --scale) choices="linear log" ;;
    --shape) choices="sine triangle" ;;
    --colour) choices="white uniform pink" ;;
    --window) choices="hann hamming blackman bartlett kaiser none" ;;
    --bits) [[ $command == filter || $command == design ]] && choices="8 12 16" || choices="8 16 24 32 float double" ;;
    design) choices="low-pass high-pass band-pass band-stop" ;;
  esac
  if [[ -n $choices ]]; then
    COMPREPLY=($(compgen -W "$choices" -- "$current"))
  elif [[ $current == -* ]]; then
    COMPREPLY=($(compgen -W "$("${COMP_WORDS[0]}" "$command" --help 2>/dev/null | grep -oE '(^| |,)--?[a-z][a-z0-9-]*' | tr -d ' ,' | grep '^--' | sort -u)" -- "$current"))
  else
    COMPREPLY=($(compgen -f -- "$current"))
    compopt -o filenames 2>/dev/null
  fi
} && complete -F _zors zors
