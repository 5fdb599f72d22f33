# A short tour in Tcl: read, ask, change and start actions on a structural model that qzdeck has read.
#
#     build/plain/bin/qzdeck script DECK examples/tcl/tour.tcl [-o FILE]

package require qzdescriptor

puts "[qz session]:"
foreach type [qz types] {
    if {[qz count $type] > 0} {
        puts [format "%8d %s" [qz count $type] $type]
    }
}

# The plates, of every kind of property that there is.
foreach type [qz types "shell property"] {
    foreach plate [qz find $type] {
        puts "[qz name $plate]: [qz actions $type]"
        if {[catch {qz run $plate Mass} answer]} {
            puts "  no mass: $answer"
        } else {
            puts "  $answer"
        }
    }
}

# Everything thinner than 10 becomes a quarter thicker.
foreach plate [qz find PSHELL "T < 10"] {
    puts "[qz name $plate]: [qz explain $plate {T < 10}]"
    qz set $plate T [expr {1.25 * [qz get $plate T]}]
    puts "  is [qz get $plate T] now"
}

# What is refused says why, and changes nothing.
foreach plate [lrange [qz find PSHELL] 0 0] {
    catch {qz set $plate T -1} reason
    puts "refused: $reason"
}

# What owns what.
foreach set [qz find "load set"] {
    puts "[qz name $set]: [qz owned $set loads]"
}
