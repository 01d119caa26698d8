# Completion of vistrel for fish.

function __vistrel_applications
    for folder in ~/GNUstep/Applications /usr/local/lib/GNUstep/Applications \
            /usr/lib/GNUstep/Applications
        for application in $folder/*.app
            basename $application .app
        end
    end
end

set -l commands enable disable run status doctor settings purge
set -l none "not __fish_seen_subcommand_from $commands"

complete -c vistrel -f
complete -c vistrel -l help -d 'Print help'
complete -c vistrel -n $none -l version -d 'Print the version'
complete -c vistrel -n $none -l bundles -r -a '(__fish_complete_directories)' \
    -d 'Where the bundles are'
complete -c vistrel -n $none -a enable -d 'Load Vistrel into applications'
complete -c vistrel -n $none -a disable -d 'Load it no longer'
complete -c vistrel -n $none -a run -d 'Start an application with Vistrel in it'
complete -c vistrel -n $none -a status -d 'Tell where Vistrel is'
complete -c vistrel -n $none -a doctor -d 'Collect what the report of a fault needs'
complete -c vistrel -n $none -a settings -d 'Print the settings and what they mean'
complete -c vistrel -n $none -a purge -d 'Delete everything that Vistrel has saved'

complete -c vistrel -n '__fish_seen_subcommand_from enable disable settings' -l app -x \
    -a '(__vistrel_applications)' -d 'Only this application'
complete -c vistrel -n '__fish_seen_subcommand_from enable disable run purge' -l dry-run \
    -d 'Print what would be done'
complete -c vistrel -n '__fish_seen_subcommand_from status doctor settings' -l json \
    -d 'Report as JSON'
complete -c vistrel -n '__fish_seen_subcommand_from doctor' -l timeout -x \
    -d 'How long the application may take'
complete -c vistrel -n '__fish_seen_subcommand_from run doctor' -a '(__vistrel_applications)'
