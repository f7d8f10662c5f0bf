set targetHandle to "+33639980010"
set messageBody to "Bonjour \"Alix\"" & return & "" & return & "C:\\menu, à bientôt"

tell application "Messages"
    set rcsService to missing value
    set smsService to missing value
    set imessageService to missing value
    try
        set rcsService to first service whose service type is RCS
    end try
    try
        set smsService to first service whose service type is SMS
    end try
    try
        set imessageService to first service whose service type is iMessage
    end try

    set targetService to rcsService
    set usingRCS to true
    if targetService is missing value then
        set targetService to smsService
        set usingRCS to false
    end if
    if targetService is missing value then set targetService to imessageService
    if targetService is missing value then error "Aucun service Messages actif"

    set targetBuddy to buddy targetHandle of targetService
    try
        send messageBody to targetBuddy
    on error rcsErrorMessage number rcsErrorNumber
        if usingRCS and smsService is not missing value then
            set targetService to smsService
            set targetBuddy to buddy targetHandle of targetService
            set usingRCS to false
            send messageBody to targetBuddy
        else
            error rcsErrorMessage number rcsErrorNumber
        end if
    end try
    
end tell