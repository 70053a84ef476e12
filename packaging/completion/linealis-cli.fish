# fish completion for linealis-cli(1), which itself tells what can follow.

function __linealis_cli_complete
    set -l words (commandline -opc) (commandline -ct)
    for line in (linealis-cli complete $words[2..-1] 2> /dev/null)
        switch $line
            case :files
                __fish_complete_path (commandline -ct)
            case :folders
                __fish_complete_directories (commandline -ct) ''
            case '*'
                echo $line
        end
    end
end

complete -c linealis-cli -f -a '(__linealis_cli_complete)'
