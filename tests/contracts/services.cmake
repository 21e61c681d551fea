# The services of the platform that have a table of contract tests, SERVICE_contract.cpp.
set(contract_services
    clock
    connections
    hiddenwindows
    icons
    messagebox
    outlook
    registry
    shell
    sound
    toplevelwindows
    wireless)
