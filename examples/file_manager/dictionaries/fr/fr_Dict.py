# The messages of the file manager in French, in UTF-8: a key as the program passes it
# and its text in every line. Escapes count in both. Numbers tell which value of the key goes where.
#
# \xC2\xA0 is the space before a colon or inside quotation marks, where no line may break.

# Messages of the program.
msg['Open\@menu'] = r'Ouvrir'
msg['Open\@state'] = r'ouvert'
msg['Close'] = r'Fermer'
msg['Rename'] = r'Renommer'
msg['Move to the trash'] = r'Mettre à la corbeille'
msg['State of %s: %s'] = r'\303\211tat de %s\xC2\xA0: %s'
msg['Contents of %s'] = r'Contenu de %s'
msg['%-16s %12d bytes, changed %.1f days ago'] = r'%-16s %12d octets, modifié il y a %.1f jours'
msg['%d of %d files selected'] = r'Sur %2$d fichiers, %1$d sont s\303\251lectionn\303\251s'
msg['Copying %s to %s'] = r'Copie de %s vers %s'
msg['%s: %d of %d bytes done (%.1f%%)'] = r'%s\xC2\xA0: %d octets traités sur %d (%.1f\xC2\xA0%%)'
msg['Checksum of %s: %08x'] = r'Somme de contrôle de %s\xC2\xA0: %08x'
msg['The copy at %x was verified in %g seconds'] = r'La copie à l\'adresse %x a été vérifiée en %g secondes'
msg['Error %d: "%s" is read only'] = r'Erreur %d\xC2\xA0: «\xC2\xA0%s\xC2\xA0» est en lecture seule'
msg['The disk is almost full. Move files that you no longer need to another disk, or empty the trash, before you copy more.'] = r'Le disque est presque plein. Avant de poursuivre la copie, déplacez les fichiers dont vous n\'avez plus besoin vers un autre disque ou videz la corbeille.'

# Plural forms: the rule of the language, and a form for each index that it gives.
msg['\@plural'] = r'n > 1'
msg['%d file in the trash\@plural0'] = r'%d fichier dans la corbeille'
msg['%d files in the trash\@plural0'] = r'%d fichier dans la corbeille'
msg['%d files in the trash\@plural1'] = r'%d fichiers dans la corbeille'

# Menus and headings.
msg['Cancel'] = r'Annuler'
msg['New folder'] = r'Nouveau dossier'
msg['Show hidden files'] = r'Afficher les fichiers cachés'
msg['Properties of %s'] = r'Propriétés de %s'
msg['Extract %s into %s'] = r'Extraire %s dans %s'
msg['Restore %d files to %s'] = r'Restaurer %d fichiers dans %s'
msg['Name\tSize\tChanged'] = r'Nom\tTaille\tModifié'

# Questions and hints.
msg['Delete %s?\nThis cannot be undone.'] = r'Supprimer %s\xC2\xA0?\nCette action est irréversible.'
msg['Delete %d files from %s?'] = r'Supprimer %d fichiers de %s\xC2\xA0?'
msg['Type a name without quotes or slashes'] = r'Saisissez un nom sans \" ni /'
msg['For example %c:/Pictures'] = r'Par exemple %c:\\Images'

# Permissions.
msg['Permissions of %s: %04o'] = r'Droits d\'accès à %s\xC2\xA0: %04o'
msg['Set permissions %03o on %u files'] = r'Attribuer à %2$u fichiers les droits %1$03o'
msg['Permission denied: %s belongs to %s'] = r'Accès refusé\xC2\xA0: %s appartient à %s'

# Search.
msg['Searching for "%s" in %s'] = r'Recherche de «\xC2\xA0%s\xC2\xA0» dans %s'
msg['%u matches for "%s" in %d folders'] = r'«\xC2\xA0%2$s\xC2\xA0»\xC2\xA0: %1$u résultats dans %3$d dossiers'
msg['No file matches "%s"'] = r'Aucun fichier ne correspond à «\xC2\xA0%s\xC2\xA0»'

# Progress.
msg['%d%% done, %d minutes left'] = r'Encore %2$d minutes, %1$d\xC2\xA0%% effectués'
msg['Copied %d of %d files at %.2f MB/s'] = r'%d fichiers copiés sur %d, à %.2f Mo/s'
msg['Moved %d files from %s to %s'] = r'%d fichiers déplacés de %s vers %s'
msg['Bell: copying is finished'] = r'\aSignal sonore\xC2\xA0: la copie est terminée'

# Sizes.
msg['%.1f GB of %.1f GB free on %s'] = r'%3$s\xC2\xA0: %1$.1f Go libres sur %2$.1f Go'
msg['About %.2e bytes in %ld files'] = r'Environ %.2e octets dans %ld fichiers'
msg['Total size: %.3E bytes'] = r'Taille totale\xC2\xA0: %.3E octets'
msg['Files in the trash: %d, the oldest deleted %d days ago'] = r'Fichiers dans la corbeille\xC2\xA0: %d, le plus ancien supprimé il y a %d jours'

# Errors.
msg['%s already exists in %s'] = r'Le dossier %2$s contient déjà %1$s'
msg['Cannot rename %s to %s: %s'] = r'Impossible de renommer %s en %s\xC2\xA0: %s'
msg['Cannot open %s (error %d)'] = r'Erreur %2$d\xC2\xA0: impossible d\'ouvrir %1$s'
msg['Cannot read %s at byte %lu'] = r'Erreur de lecture à l\'octet %2$lu de %1$s'
msg['Character %c (%02x) is not allowed in %s'] = r'Dans %3$s, le caractère %1$c (%2$02x) est interdit'
msg['Drive %c: is not ready'] = r'Le lecteur %c: n\'est pas prêt'
msg['Device %04X:%04X was removed'] = r'Le périphérique %04X:%04X a été retiré'
